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

/// Returns a text that stands for the target of a relationship's id, so that ids themselves do not count.
using TargetText = std::function<std::string(std::string_view id)>;

/// The rules by which two exports of one office are compared.
struct CanonicalRules {
    std::span<const VolatileName> volatileNames;
    /// Elements that mean nothing without content and attributes.
    std::span<const std::string_view> voidWhenEmpty;
};

/// Writes XML in a form in which equal content is equal text: without volatile names, comments and white
/// space between elements, with attributes in the order of their names and relationships as their targets.
class CanonicalXml {
  public:
    CanonicalXml(const CanonicalRules& rules, TargetText target)
        : rules_(rules), target_(std::move(target)) {}

    [[nodiscard]] std::string of(pugi::xml_node node) const;
    /// Returns the form of the children alone.
    [[nodiscard]] std::string ofChildren(pugi::xml_node node) const;
    [[nodiscard]] bool isVolatile(pugi::xml_node element) const;

  private:
    void append(pugi::xml_node node, std::string& text) const;
    void appendElement(pugi::xml_node element, std::string& text) const;
    [[nodiscard]] std::string attributesOf(pugi::xml_node element) const;

    CanonicalRules rules_;
    TargetText target_;
};

}  // namespace mergeloom::graft
