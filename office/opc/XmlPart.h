#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>

namespace mergeloom::opc {

/// One XML part of a package as a tree. White space, comments and whatever else stands in the part is kept,
/// so that a part that was edited in one place is the same everywhere else when it is written again.
///
/// Nodes are never destroyed while the part lives: what an edit takes out goes to the attic, a hidden element
/// outside the root, from where an undo can bring it back; new nodes are made there too.
class XmlPart {
  public:
    /// Raises kFileCouldNotBeRead, naming the file and the part, for XML that is not well-formed, carries a
    /// document type or nests deeper than any real document does.
    static std::unique_ptr<XmlPart> parse(std::string xml, const std::string& partName,
                                          const std::string& fileName);

    XmlPart(const XmlPart&) = delete;
    XmlPart& operator=(const XmlPart&) = delete;

    [[nodiscard]] const std::string& partName() const { return partName_; }
    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    [[nodiscard]] pugi::xml_node attic() const { return attic_; }

    [[nodiscard]] bool isDirty() const { return dirty_; }
    void setDirty(bool dirty) { dirty_ = dirty; }

    /// The part as it is written: UTF-8, as it was read but for what was edited.
    [[nodiscard]] std::string toXml() const;

  private:
    XmlPart() = default;

    std::string partName_;
    std::string source_;  // names and values of the tree point into it
    pugi::xml_document document_;
    pugi::xml_node attic_;
    bool dirty_ = false;
};

}  // namespace mergeloom::opc
