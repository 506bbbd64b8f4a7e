#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

/// The package's own XML: content types and relationships.
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

/// Parses a small XML part into a document, comments and all. Raises kFileCouldNotBeRead, with the file's
/// name and the part's, when it is malformed, has a document type declaration (ECMA-376 Part 2, 6.5.3.1 and
/// 6.2.3.4 forbid it) or another root element than the one of that local name.
void parsePackageXml(pugi::xml_document& document, std::string_view xml, const std::string& rootName,
                     const std::string& partName, const std::string& fileName);

/// The document as UTF-8, nothing reformatted.
std::string packageXmlText(pugi::xml_document& document);

/// An element's name without its namespace prefix.
std::string_view localName(const pugi::xml_node& element);

/// Appends an element in the root's namespace and answers it.
pugi::xml_node appendLike(pugi::xml_node root, const std::string& name);

}  // namespace mergeloom::opc
