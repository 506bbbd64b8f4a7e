#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pugi {
class xml_document;
}

namespace mergeloom::opc {

/// Each type of relationship of Office Open XML exists twice: in transitional documents (ECMA-376 Part 4) and
/// in strict ones (ECMA-376 Part 1).
enum class Conformance { Transitional, Strict };

/// Returns the type with a short name such as "officeDocument" or "image".
std::string officeRelationshipType(std::string_view shortName, Conformance conformance);

/// Returns the short name of a type in either form; empty for types that are not of Office Open XML.
std::string_view officeShortName(std::string_view type);

inline constexpr std::string_view kSignatureOriginType =
    "http://schemas.openxmlformats.org/package/2006/relationships/digital-signature/origin";

enum class TargetMode { Internal, External };

/// One relationship (ECMA-376 Part 2, 6.5.3.4).
struct Relationship {
    std::string id;
    std::string type;
    std::string target;  ///< as written
    TargetMode mode = TargetMode::Internal;
};

/// The relationships of one part, or of the package itself for the source "/". What is unknown in their part
/// stays.
class Relationships {
  public:
    /// No relationships yet.
    explicit Relationships(std::string sourcePart);
    /// Raises kFileCouldNotBeRead, with the file's name, when the XML is malformed.
    Relationships(std::string sourcePart, std::string_view xml, const std::string& fileName);
    Relationships(Relationships&&) noexcept;
    Relationships& operator=(Relationships&&) noexcept;
    ~Relationships();

    [[nodiscard]] const std::string& sourcePart() const { return sourcePart_; }
    /// In the order of the part. Adding and removing make pointers into it invalid.
    [[nodiscard]] const std::vector<Relationship>& all() const { return all_; }
    /// Null when there is none.
    [[nodiscard]] const Relationship* find(std::string_view id) const;
    /// Those of an Office Open XML type by its short name ("image"), transitional and strict.
    [[nodiscard]] std::vector<const Relationship*> ofOfficeType(std::string_view shortName) const;
    [[nodiscard]] bool hasType(std::string_view type) const;
    /// The name of the part that an internal relationship means, which need not exist.
    [[nodiscard]] std::string targetPart(const Relationship& relationship) const;

    /// Adds a relationship to a part and answers its new id.
    std::string addPart(const std::string& type, const std::string& partName);
    /// Brings a relationship to a part back that was removed, under the id that it had. The id is free.
    void restorePart(const std::string& id, const std::string& type, const std::string& partName);
    /// Adds a relationship to a resource outside of the package and answers its new id.
    std::string addExternal(const std::string& type, const std::string& target);
    /// False when there is none of that id.
    bool remove(std::string_view id);

    [[nodiscard]] bool isChanged() const { return changed_; }
    void setUnchanged() { changed_ = false; }
    [[nodiscard]] std::string toXml() const;

  private:
    void readAll(const std::string& fileName);
    std::string add(Relationship relationship);
    std::string freeId();

    std::string sourcePart_;
    std::unique_ptr<pugi::xml_document> document_;
    std::vector<Relationship> all_;
    std::unordered_map<std::string, std::size_t> indexes_;  ///< by id
    std::size_t lastNumber_ = 0;
    bool changed_ = false;
};

}  // namespace mergeloom::opc
