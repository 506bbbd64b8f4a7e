#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pugi {
class xml_document;
}

namespace mergeloom::opc {

/// The content types of a package's parts, the stream "[Content_Types].xml" (ECMA-376 Part 2, 6.2.3).
/// Extensions and part names are compared without regard to case. Unknown content of the stream is kept.
class ContentTypes {
  public:
    /// Makes those of a new package: relationships and XML by their extensions.
    ContentTypes();
    /// Raises kFileCouldNotBeRead, with the file's name, if the stream is malformed.
    ContentTypes(std::string_view xml, const std::string& fileName);
    ContentTypes(ContentTypes&&) noexcept;
    ContentTypes& operator=(ContentTypes&&) noexcept;
    ~ContentTypes();

    /// Returns the part's own type or that of its extension; empty if there is neither.
    [[nodiscard]] std::string of(std::string_view partName) const;

    /// Sets a part's own type.
    void setOverride(const std::string& partName, const std::string& contentType);
    void removeOverride(const std::string& partName);
    /// Sets the type of an extension that has none. Returns false if it already has a different one.
    bool ensureDefault(const std::string& extension, const std::string& contentType);

    [[nodiscard]] bool isChanged() const { return changed_; }
    void setUnchanged() { changed_ = false; }
    [[nodiscard]] std::string toXml() const;

  private:
    using Types = std::unordered_map<std::string, std::string>;

    void readTypes(const std::string& fileName);

    std::unique_ptr<pugi::xml_document> document_;
    Types overrides_;  ///< by the part's key
    Types defaults_;   ///< by the extension, case folded
    bool changed_ = false;
};

}  // namespace mergeloom::opc
