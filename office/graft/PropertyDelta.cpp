#include "office/graft/PropertyDelta.h"

#include "office/graft/Refusal.h"
#include "office/opc/PropertyOrder.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::graft {

namespace {

bool hasElements(pugi::xml_node node) {
    return static_cast<bool>(
        node.find_child([](pugi::xml_node child) { return child.type() == pugi::node_element; }));
}

/// Returns true if the properties in the element are compared one by one.
bool holdsProperties(std::string_view name) {
    return name == "rPr" || name == "sectPr" || name == "numPr";
}

std::string_view localOf(const char* name) {
    const std::string_view whole(name);
    const std::size_t colon = whole.find(':');
    return colon == std::string_view::npos ? whole : whole.substr(colon + 1);
}

/// Removes attributes that take precedence over one that is set: fonts and colours of the theme.
void removeTheme(pugi::xml_node element, std::string_view attribute, const opc::WordNames& names) {
    const std::string_view element_ = opc::localName(element);
    if (element_ == "rFonts")
        element.remove_attribute(names.attribute(std::string(attribute) + "Theme").c_str());
    if (element_ != "color" && element_ != "shd" && element_ != "u") return;
    for (const char* name :
         {"themeColor", "themeTint", "themeShade", "themeFill", "themeFillTint", "themeFillShade"})
        element.remove_attribute(names.attribute(name).c_str());
}

void setAttribute(pugi::xml_node element, const std::string& name, const std::string& value) {
    pugi::xml_attribute attribute = element.attribute(name.c_str());
    if (!attribute) attribute = element.append_attribute(name.c_str());
    attribute.set_value(value.c_str());
}

pugi::xml_node childOf(pugi::xml_node element, std::string_view localName, const opc::WordNames& names) {
    return element.child(names.element(localName).c_str());
}

void checkIsWord(pugi::xml_node property) {
    if (!std::string_view(property.name()).starts_with("w:")) throw Refusal("an effect of text was changed");
}

/// Applies one changed property.
class Application {
  public:
    Application(pugi::xml_node properties, const opc::WordNames& names, const ValueTranslation& translate)
        : properties_(properties), names_(names), translate_(translate) {}

    void set(pugi::xml_node former, pugi::xml_node now) {
        checkIsWord(now);
        const std::string_view name = opc::localName(now);
        if (hasElements(now)) return replace(name, now);
        std::vector<std::pair<std::string, std::string>> values;
        for (const pugi::xml_attribute attribute : now.attributes()) {
            const std::string_view before = former.attribute(attribute.name()).value();
            if (former.attribute(attribute.name()) && before == attribute.value()) continue;
            const std::optional<std::string> value = translate_(name, attribute.value());
            if (!value) return;
            values.emplace_back(localOf(attribute.name()), *value);
        }
        const pugi::xml_node target = opc::requireChild(properties_, name, names_);
        if (!now.first_attribute()) removeAttributes(target);
        for (const pugi::xml_attribute attribute : former.attributes())
            if (!now.attribute(attribute.name())) removeAttribute(target, localOf(attribute.name()));
        for (const auto& [attribute, value] : values) {
            removeTheme(target, attribute, names_);
            setAttribute(target, names_.attribute(attribute), value);
        }
    }
    void remove(pugi::xml_node former) {
        checkIsWord(former);
        const pugi::xml_node target = childOf(properties_, opc::localName(former), names_);
        if (!target) return;
        for (const pugi::xml_attribute attribute : former.attributes()) {
            removeTheme(target, localOf(attribute.name()), names_);
            removeAttribute(target, localOf(attribute.name()));
        }
        if (!target.first_attribute() || hasElements(former)) properties_.remove_child(target);
    }

  private:
    /// Replaces the whole property, such as borders and tabs, whose parts belong together.
    void replace(std::string_view name, pugi::xml_node now) {
        pugi::xml_node target = opc::requireChild(properties_, name, names_);
        target.remove_children();
        removeAttributes(target);
        copy(now, target);
    }
    void copy(pugi::xml_node from, pugi::xml_node to) {
        checkIsWord(from);
        for (const pugi::xml_attribute attribute : from.attributes())
            setAttribute(to, names_.attribute(localOf(attribute.name())), attribute.value());
        for (const pugi::xml_node child : from.children())
            if (child.type() == pugi::node_element)
                copy(child, to.append_child(names_.element(opc::localName(child)).c_str()));
    }
    void removeAttribute(pugi::xml_node element, std::string_view localName) {
        element.remove_attribute(names_.attribute(localName).c_str());
    }
    static void removeAttributes(pugi::xml_node element) {
        while (element.first_attribute())
            element.remove_attribute(element.first_attribute());
    }

    pugi::xml_node properties_;
    const opc::WordNames& names_;
    const ValueTranslation& translate_;
};

}  // namespace

PropertyDelta::PropertyDelta(pugi::xml_node former, pugi::xml_node now, const CanonicalXml& canonical) {
    for (const pugi::xml_node property : now.children()) {
        const pugi::xml_node before = former.child(property.name());
        if (canonical.of(before) != canonical.of(property)) changes_.push_back({before, property});
    }
    for (const pugi::xml_node property : former.children())
        if (!now.child(property.name()) && !canonical.of(property).empty())
            changes_.push_back({property, {}});
}

/// Applies the changes of the properties that are inside of a property, such as a list or a section.
void PropertyDelta::applyInside(const PropertyDelta& inner, const Change& change, pugi::xml_node properties,
                                const opc::WordNames& names, const ValueTranslation& translate) {
    const std::string_view name = opc::localName(change.now ? change.now : change.former);
    if (change.now) return inner.applyTo(opc::requireChild(properties, name, names), names, translate);
    const pugi::xml_node target = childOf(properties, name, names);
    if (!target) return;
    inner.applyTo(target, names, translate);
    if (!target.first_child()) properties.remove_child(target);
}

void PropertyDelta::applyTo(pugi::xml_node properties, const opc::WordNames& names,
                            const ValueTranslation& translate) const {
    Application application(properties, names, translate);
    for (const Change& change : changes_) {
        const pugi::xml_node any = change.now ? change.now : change.former;
        const std::string_view name = opc::localName(any);
        if (name == "headerReference" || name == "footerReference")
            throw Refusal("a header or a footer was added or removed");
        if (name == "rPrChange" || name == "pPrChange" || name == "sectPrChange")
            throw Refusal("a tracked change of formatting was made");
        if (holdsProperties(name)) {
            // Volatile content was removed from it before.
            const PropertyDelta inner(change.former, change.now, plainXml());
            if (!inner.isEmpty()) applyInside(inner, change, properties, names, translate);
            continue;
        }
        change.now ? application.set(change.former, change.now) : application.remove(change.former);
    }
}

}  // namespace mergeloom::graft
