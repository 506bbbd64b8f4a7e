#pragma once

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// Appends the output of pugixml to a string.
class StringWriter final : public pugi::xml_writer {
  public:
    explicit StringWriter(std::string& target) : target_(target) {}
    void write(const void* data, std::size_t size) override {
        target_.append(static_cast<const char*>(data), size);
    }

  private:
    std::string& target_;
};

/// Parses a small XML part into a document, including its comments. Raises kFileCouldNotBeRead, with the
/// names of the file and the part, if the part is malformed, has a document type declaration (ECMA-376 Part
/// 2, 6.5.3.1 and 6.2.3.4 forbid it) or has a root element of another local name.
void parsePackageXml(pugi::xml_document& document, std::string_view xml, const std::string& rootName,
                     const std::string& partName, const std::string& fileName);

/// Returns the document as UTF-8, not reformatted.
std::string packageXmlText(pugi::xml_document& document);

/// Returns an element's name without its namespace prefix.
std::string_view localName(const pugi::xml_node& element);

/// Appends an element in the root's namespace and returns it.
pugi::xml_node appendLike(pugi::xml_node root, const std::string& name);

/// One XML part of a package as a tree. White space, comments and unknown content are kept, so that a part
/// that was edited in one place is unchanged everywhere else when it is written again.
///
/// Nodes are not destroyed before the part: an edit moves removed nodes to the detached nodes, below a hidden
/// element outside the root, from which undo restores them. New nodes are created there, too.
class XmlPart {
  public:
    /// Raises kFileCouldNotBeRead, with the names of the file and the part, for XML that is not well-formed,
    /// has a document type or is nested deeper than any real document.
    static std::unique_ptr<XmlPart> parse(std::string xml, const std::string& partName,
                                          const std::string& fileName);

    XmlPart(const XmlPart&) = delete;
    XmlPart& operator=(const XmlPart&) = delete;

    [[nodiscard]] const std::string& partName() const { return partName_; }
    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    [[nodiscard]] pugi::xml_node detachedNodes() const { return detachedNodes_; }

    [[nodiscard]] bool isDirty() const { return dirty_; }
    void setDirty(bool dirty) { dirty_ = dirty; }

    /// Moves a node to the detached nodes.
    void detach(pugi::xml_node node) const { pugi::xml_node(detachedNodes_).append_move(node); }

    /// Returns the part in UTF-8, unchanged except for the edits. Reserves memory for the expected size,
    /// since a growing string is copied and needs twice its size meanwhile.
    [[nodiscard]] std::string toXml(std::size_t expectedSize = 0) const;

  private:
    XmlPart() = default;

    std::string partName_;
    std::string source_;  ///< names and values of the tree are views into it
    pugi::xml_document document_;
    pugi::xml_node detachedNodes_;
    bool dirty_ = false;
};

}  // namespace mergeloom::opc
