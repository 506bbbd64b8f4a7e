#pragma once

#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// Makes the elements that edits put into a part. They come into being in the part's attic, as copies of a
/// skeleton whose names they share, since the same few elements are made a hundred thousand times.
class WordSkeletons {
  public:
    WordSkeletons(opc::XmlPart& part, const opc::WordNames& names);
    WordSkeletons(const WordSkeletons&) = delete;
    WordSkeletons& operator=(const WordSkeletons&) = delete;

    pugi::xml_node makeParagraph() { return copy(paragraph_); }
    pugi::xml_node makeRun() { return copy(run_); }
    /// A text element with its text; blanks at its ends are marked to be kept.
    pugi::xml_node makeText(const std::string& text);
    pugi::xml_node makeBookmarkStart(const std::string& id, const std::string& name);
    pugi::xml_node makeBookmarkEnd(const std::string& id);
    /// Any other element of WordprocessingML, empty.
    pugi::xml_node makeElement(std::string_view localName);
    /// An element from its XML.
    pugi::xml_node parse(const std::string& xml);
    /// An empty element with the name and the attributes of another.
    pugi::xml_node makeLike(pugi::xml_node node);
    pugi::xml_node copy(pugi::xml_node node) { return part_.attic().append_copy(node); }

  private:
    opc::XmlPart& part_;
    const opc::WordNames& names_;
    pugi::xml_node paragraph_;
    pugi::xml_node run_;
    pugi::xml_node text_;
    pugi::xml_node bookmarkStart_;
    pugi::xml_node bookmarkEnd_;
};

/// The attribute that keeps the blanks at the ends of a text (XML 1.0, 2.10).
inline constexpr const char* kSpaceAttribute = "xml:space";

/// Marks a text element whose text begins or ends with a blank, so that the blank is kept. False when it
/// needs no mark or has one.
bool keepBlanks(pugi::xml_node textElement);

}  // namespace mergeloom::embedded
