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

/// The relationships of one part, or of the package itself for the source "/". Unknown content of their part
/// is kept.
class Relationships {
  public:
    /// Makes an empty list.
    explicit Relationships(std::string sourcePart);
    /// Raises kFileCouldNotBeRead, with the file's name, if the XML is malformed.
    Relationships(std::string sourcePart, std::string_view xml, const std::string& fileName);
    Relationships(Relationships&&) noexcept;
    Relationships& operator=(Relationships&&) noexcept;
    ~Relationships();

    [[nodiscard]] const std::string& sourcePart() const { return sourcePart_; }
    /// Returns them in the order of their part. Adding and removing invalidate pointers into the list.
    [[nodiscard]] const std::vector<Relationship>& all() const { return all_; }
    /// Returns null if there is none.
    [[nodiscard]] const Relationship* find(std::string_view id) const;
    /// Returns those of an Office Open XML type, transitional or strict, by its short name ("image").
    [[nodiscard]] std::vector<const Relationship*> ofOfficeType(std::string_view shortName) const;
    [[nodiscard]] bool hasType(std::string_view type) const;
    /// Returns the name of an internal relationship's target, which need not exist.
    [[nodiscard]] std::string targetPart(const Relationship& relationship) const;

    /// Adds a relationship to a part and returns its new id.
    std::string addPart(const std::string& type, const std::string& partName);
    /// Adds a relationship to an address outside of the package and returns its new id.
    std::string addExternal(const std::string& type, const std::string& target);
    /// Restores a removed relationship to a part under its former id, which must be free.
    void restorePart(const std::string& id, const std::string& type, const std::string& partName);
    /// Returns false if there is none of that id.
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
