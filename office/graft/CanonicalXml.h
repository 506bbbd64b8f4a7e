#pragma once

#include <functional>
#include <pugixml.hpp>
#include <span>
#include <string>
#include <string_view>

namespace mergeloom::graft {

/// An attribute, or an element when `attribute` is empty, that differs between two exports of one unchanged
/// document. Names are written as the office writes them, with their prefixes; an element "*" is any element,
/// and a name that ends in "*" is the beginning of names.
struct VolatileName {
    std::string_view element;
    std::string_view attribute;
};

/// Returns a text that identifies the target of a relationship by its id. The ids themselves are not
/// compared.
using TargetText = std::function<std::string(std::string_view id)>;

/// The rules by which two exports of one office are compared.
struct CanonicalRules {
    std::span<const VolatileName> volatileNames;
    /// Elements that have no effect without content and attributes.
    std::span<const std::string_view> voidWhenEmpty;
};

/// Writes XML in a canonical form, in which equal content gives equal text: volatile names, comments and
/// white space between elements are omitted, attributes are sorted by name, and ids of relationships are
/// replaced by their targets.
class CanonicalXml {
  public:
    CanonicalXml(const CanonicalRules& rules, TargetText target)
        : rules_(rules), target_(std::move(target)) {}

    [[nodiscard]] std::string of(pugi::xml_node node) const;
    /// Returns the canonical form of the children only.
    [[nodiscard]] std::string ofChildren(pugi::xml_node node) const;
    [[nodiscard]] bool isVolatile(pugi::xml_node element) const;

  private:
    void append(pugi::xml_node node, std::string& text) const;
    void appendElement(pugi::xml_node element, std::string& text) const;
    [[nodiscard]] std::string attributesOf(pugi::xml_node element) const;

    CanonicalRules rules_;
    TargetText target_;
};

/// Returns the canonical form of all content, with unchanged ids of relationships.
const CanonicalXml& plainXml();

}  // namespace mergeloom::graft
