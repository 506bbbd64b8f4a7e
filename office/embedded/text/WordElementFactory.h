#pragma once

#include "office/embedded/text/DomPlace.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// Creates the elements that edits insert into a part: at their place or among the part's detached nodes.
/// They are copies of prototypes, with which they share their names, since the same few elements are created
/// a hundred thousand times.
class WordElementFactory {
  public:
    WordElementFactory(opc::XmlPart& part, const opc::WordNames& names);
    WordElementFactory(const WordElementFactory&) = delete;
    WordElementFactory& operator=(const WordElementFactory&) = delete;

    pugi::xml_node makeParagraph() { return copy(paragraph_); }
    pugi::xml_node addParagraph(const DomPlace& place) { return copyTo(place, paragraph_); }
    pugi::xml_node makeRun() { return copy(run_); }
    pugi::xml_node addRun(const DomPlace& place) { return copyTo(place, run_); }
    /// Adds a run with one text element; blanks at the ends of the text are preserved.
    pugi::xml_node addTextRun(const DomPlace& place, std::string_view text);
    pugi::xml_node makeBookmarkStart(const std::string& id, const std::string& name);
    pugi::xml_node addBookmarkStart(const DomPlace& place, const std::string& id, const std::string& name);
    pugi::xml_node addBookmarkEnd(const DomPlace& place, const std::string& id);
    /// Creates any other element of WordprocessingML, without content.
    pugi::xml_node makeElement(std::string_view localName);
    /// Creates an element from its XML.
    pugi::xml_node parse(const std::string& xml);
    /// Creates an empty element with the name and the attributes of another.
    pugi::xml_node makeLike(pugi::xml_node node);
    pugi::xml_node copy(pugi::xml_node node) { return part_.detachedNodes().append_copy(node); }

  private:
    static pugi::xml_node copyTo(const DomPlace& place, pugi::xml_node prototype);

    opc::XmlPart& part_;
    const opc::WordNames& names_;
    pugi::xml_node paragraph_;
    pugi::xml_node run_;
    pugi::xml_node textRun_;
    pugi::xml_node textRunWithBlanks_;
    pugi::xml_node bookmarkStart_;
    pugi::xml_node bookmarkEnd_;
};

/// The attribute that preserves the blanks at the ends of a text (XML 1.0, 2.10).
inline constexpr const char* kSpaceAttribute = "xml:space";

/// Returns true for a text that begins or ends with a blank.
bool hasOuterBlanks(std::string_view text);
/// Marks a text element whose text begins or ends with a blank, so that the blank is preserved. Returns false
/// if no mark is needed or there is one already.
bool keepBlanks(pugi::xml_node textElement);

}  // namespace mergeloom::embedded
