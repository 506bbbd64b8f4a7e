#include "xml/BoundValueIndex.h"

#include "base/Text.h"
#include "xml/modNamedItems.h"

#include <algorithm>
#include <pugixml.hpp>

namespace mergeloom {

namespace {

std::string_view localName(std::string_view qualifiedName) {
    return qualifiedName.substr(qualifiedName.find(':') + 1);
}

/// The name as the search for it would write it into its expression.
std::string searchedName(std::string_view name) {
    const bool bothQuotes =
        name.find('\'') != std::string_view::npos && name.find('"') != std::string_view::npos;
    return bothQuotes ? replaceAll(name, "\"", "") : std::string(name);
}

}  // namespace

BoundValueIndex::BoundValueIndex(XmlNode data) {
    addBelow(pugi::xml_node(data.handle()));
    std::sort(byName_.begin(), byName_.end());
}

// Answers whether there is a BoundValue element below the parent. A loaded document is not nested deep.
bool BoundValueIndex::addBelow(pugi::xml_node parent) {
    bool found = false;
    for (const pugi::xml_node child : parent.children()) {
        if (child.type() != pugi::node_element) continue;
        const StructureElement element = structureElementOf(localName(child.name()));
        const bool foundBelow = element == StructureElement::Control ? addControl(child) : addBelow(child);
        found = found || foundBelow || element == StructureElement::BoundValue;
    }
    return found;
}

bool BoundValueIndex::addControl(pugi::xml_node element) {
    const auto number = static_cast<Number>(controls_.size());
    controls_.push_back({});
    bool hasName = false;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (NamedItemIndex(NamedItemList::Attributes, localName(attribute.name())) != 0) continue;
        byName_.push_back({attribute.value(), number});
        hasName = true;
    }
    if (hasName) named_.push_back(number);

    const bool found = addBelow(element);
    controls_[number] = {static_cast<Number>(controls_.size()), found};
    return found;
}

bool BoundValueIndex::hasBoundValue(std::string_view outerName, std::string_view name) const {
    Number from = 0;
    auto end = static_cast<Number>(controls_.size());
    if (!outerName.empty()) {
        const Number outer = first(searchedName(outerName), from, end);
        if (outer == end) return false;
        from = outer + 1;
        end = controls_[outer].endBelow;
    }
    const Number control = first(searchedName(name), from, end);
    return control != end && controls_[control].hasBoundValue;
}

// The first control of a name from one number to before another; the latter when there is none.
BoundValueIndex::Number BoundValueIndex::first(std::string_view name, Number from, Number end) const {
    if (name.empty()) {
        const auto found = std::lower_bound(named_.begin(), named_.end(), from);
        return found == named_.end() ? end : std::min(*found, end);
    }
    const auto found = std::lower_bound(byName_.begin(), byName_.end(), NamedControl{name, from});
    const bool same = found != byName_.end() && found->name == name;
    return same ? std::min(found->number, end) : end;
}

}  // namespace mergeloom
