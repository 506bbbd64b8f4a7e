#include "office/embedded/letters/ListRestarts.h"

#include "base/Text.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Placeholder for the id of a further instance, and for the position after the last list. No text contains
/// it.
constexpr const char* kNewId = "\uFDD0";

pugi::xml_node childWith(pugi::xml_node parent, const std::string& element, const std::string& attribute,
                         const char* value) {
    return parent.find_child([&](pugi::xml_node child) {
        return child.name() == element &&
               std::string_view(child.attribute(attribute.c_str()).value()) == value;
    });
}

class ListReader {
  public:
    explicit ListReader(pugi::xml_node root)
        : root_(root),
          names_(root),
          level_(names_.element("lvl")),
          override_(names_.element("lvlOverride")) {}

    [[nodiscard]] const char* idOf(pugi::xml_node list) const { return names_.value(list, "numId"); }

    /// Returns the definition of a list, or of the list style to which the definition refers.
    [[nodiscard]] pugi::xml_node definitionOf(pugi::xml_node list) const {
        const pugi::xml_node definition =
            childWith(root_, names_.element("abstractNum"), names_.attribute("abstractNumId"),
                      valueOf(list, "abstractNumId"));
        const char* const style = valueOf(definition, "numStyleLink");
        if (*style == '\0') return definition;
        return root_.find_child(
            [&](pugi::xml_node child) { return std::string_view(valueOf(child, "styleLink")) == style; });
    }

    /// Returns true if one of the levels of a list is numbered, including levels that the list overrides.
    [[nodiscard]] bool counts(pugi::xml_node list, pugi::xml_node definition) const {
        const auto isCounting = [this](pugi::xml_node level) { return countsIn(level); };
        return std::ranges::any_of(definition.children(level_.c_str()), isCounting) ||
               std::ranges::any_of(list.children(override_.c_str()), [&](pugi::xml_node override) {
                   return countsIn(override.child(level_.c_str()));
               });
    }

    /// Returns the levels that are linked to styles, by the ids of the styles.
    [[nodiscard]] std::map<std::string, std::string> levelsOfStyles(pugi::xml_node definition) const {
        std::map<std::string, std::string> levels;
        for (const pugi::xml_node level : definition.children(level_.c_str())) {
            const std::string style = valueOf(level, "pStyle");
            if (!style.empty()) levels[style] = names_.value(level, "ilvl");
        }
        return levels;
    }

    /// Returns the XML of a further instance, in which each level begins with its start again.
    [[nodiscard]] std::string instanceOf(pugi::xml_node list, pugi::xml_node definition) const {
        pugi::xml_document document;
        pugi::xml_node copy = document.append_copy(list);
        copy.attribute(names_.attribute("numId").c_str()).set_value(kNewId);
        for (const pugi::xml_node level : definition.children(level_.c_str()))
            restart(copy, level);
        std::string xml;
        opc::StringWriter writer(xml);
        document.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
        return xml;
    }

  private:
    [[nodiscard]] const char* valueOf(pugi::xml_node node, std::string_view child) const {
        return names_.value(node.child(names_.element(child).c_str()), "val");
    }

    [[nodiscard]] bool countsIn(pugi::xml_node level) const {
        const std::string_view format = valueOf(level, "numFmt");
        return level && format != "bullet" && format != "none";
    }

    void restart(pugi::xml_node list, pugi::xml_node level) const {
        const std::string number = names_.attribute("ilvl");
        pugi::xml_node own = childWith(list, override_, number, names_.value(level, "ilvl"));
        if (!own) {
            own = list.append_child(override_.c_str());
            own.append_attribute(number.c_str()).set_value(names_.value(level, "ilvl"));
        }
        const std::string startOverride = names_.element("startOverride");
        if (own.child(startOverride.c_str())) return;
        const pugi::xml_node ownLevel = own.child(names_.element("lvl").c_str());
        const pugi::xml_node start = (ownLevel ? ownLevel : level).child(names_.element("start").c_str());
        const std::string value = start ? names_.value(start, "val") : "0";
        own.prepend_child(startOverride.c_str())
            .append_attribute(names_.attribute("val").c_str())
            .set_value(value.c_str());
    }

    pugi::xml_node root_;
    opc::WordNames names_;
    // pugixml keeps a pointer to the name of the children that it lists.
    std::string level_;
    std::string override_;
};

}  // namespace

ListRestarts::ListRestarts(opc::Package& package)
    : partName_(package.relatedPart(package.mainPart(), "numbering")) {
    if (partName_.empty()) return;
    const std::unique_ptr<opc::XmlPart> part =
        opc::XmlPart::parse(package.readPart(partName_), partName_, package.fileName());
    const ListReader reader(part->root());
    const std::string element = opc::WordNames(part->root()).element("num");
    pugi::xml_node last;
    for (const pugi::xml_node list : part->root().children(element.c_str())) {
        last = list;
        highest_ = std::max<std::int64_t>(highest_, std::atoll(reader.idOf(list)));
        const pugi::xml_node definition = reader.definitionOf(list);
        if (!reader.counts(list, definition)) continue;
        models_[reader.idOf(list)] = reader.instanceOf(list, definition);
        for (auto& [style, level] : reader.levelsOfStyles(definition))
            levels_[{reader.idOf(list), style}] = level;
    }
    if (!last) return;
    part->root().insert_child_after(pugi::node_pcdata, last).set_value(kNewId);
    xml_ = part->toXml();
    insertion_ = xml_.find(kNewId);
    xml_.erase(insertion_, std::string_view(kNewId).size());
}

std::string ListRestarts::levelOf(const std::string& id, const std::string& style) const {
    const auto found = levels_.find({id, style});
    return found == levels_.end() ? std::string() : found->second;
}

bool ListRestarts::use(const std::string& id) {
    if (!counts(id)) return false;
    used_.emplace(id, static_cast<std::int64_t>(used_.size()) + 1);
    return true;
}

std::string ListRestarts::idIn(std::int64_t section, const std::string& id) {
    if (section == 0) return id;
    const std::int64_t number =
        highest_ + (section - 1) * static_cast<std::int64_t>(used_.size()) + used_.at(id);
    if (number > kMaxLists) {
        isExhausted_ = true;
        return id;
    }
    std::string text = std::to_string(number);
    const auto [restart, isNew] = restarts_.try_emplace(number);
    if (isNew) restart->second = replaceAll(models_.at(id), kNewId, text);
    return text;
}

std::string ListRestarts::takeXml() {
    std::string added;
    for (const auto& [number, xml] : std::exchange(restarts_, {}))
        added += xml;
    return std::string(xml_).insert(insertion_, added);
}

}  // namespace mergeloom::embedded
