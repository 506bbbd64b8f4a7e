#include "office/embedded/sheet/DefinedNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/model/excel/DefinedNameRule.h"

#include <charconv>

namespace mergeloom::embedded {

namespace {

std::string keyOf(std::string_view name, int sheet) {
    return foldCase(name) + "!" + std::to_string(sheet);
}

/// Returns the number if the text consists of nothing else.
std::optional<std::int64_t> numberOf(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) return {};
    return number;
}

/// Returns the sheet of a name; nothing if the workbook does not list it.
std::optional<int> scopeOf(pugi::xml_node node, std::size_t sheetCount) {
    const pugi::xml_attribute attribute = node.attribute("localSheetId");
    if (!attribute) return DefinedNames::kWorkbook;
    const std::optional<std::int64_t> sheet = numberOf(attribute.value());
    if (!sheet || *sheet < 0 || *sheet >= static_cast<std::int64_t>(sheetCount)) return {};
    return static_cast<int>(*sheet);
}

int knownScopeOf(pugi::xml_node node) {
    return node.attribute("localSheetId").as_int(DefinedNames::kWorkbook);
}

std::string_view nameOf(pugi::xml_node node) {
    return node.attribute("name").value();
}

/// Returns the child of the workbook after which the list of names has its place (ECMA-376 Part 1, A.2,
/// CT_Workbook).
pugi::xml_node predecessor(pugi::xml_node root) {
    for (const char* name : {"externalReferences", "functionGroups", "sheets"}) {
        if (const pugi::xml_node found = childNamed(root, name)) return found;
    }
    return {};
}

}  // namespace

DefinedNames::DefinedNames(opc::XmlPart& part, PartState& state, std::size_t sheetCount)
    : part_(part), state_(state) {
    const pugi::xml_node names = childNamed(part.root(), "definedNames");
    if (!names) return;
    for (const pugi::xml_node node : childrenNamed(names, "definedName")) {
        const std::optional<int> sheet = scopeOf(node, sheetCount);
        if (sheet && !nameOf(node).empty()) list(node, *sheet);
    }
}

void DefinedNames::list(pugi::xml_node node, int sheet) {
    indexes_.emplace(keyOf(nameOf(node), sheet), nodes_.size());
    nodes_.push_back(node);
}

std::size_t DefinedNames::count() const {
    return nodes_.size();
}

DefinedNames::Entry DefinedNames::at(std::size_t index) const {
    const pugi::xml_node node = nodes_.at(index);
    return {std::string(nameOf(node)), knownScopeOf(node), node.attribute("hidden").as_bool(), textOf(node)};
}

std::optional<std::size_t> DefinedNames::find(const std::string& name, int sheet) const {
    const auto found = indexes_.find(keyOf(name, sheet));
    if (found == indexes_.end()) return {};
    return found->second;
}

std::size_t DefinedNames::define(const std::string& name, const std::string& formula, int sheet) {
    const std::optional<std::size_t> former = find(name, sheet);
    if (former) {
        setFormula(*former, formula);
        return *former;
    }
    if (!excel::isDefinedName(name)) {
        throw AutomationError(kApplicationDefined,
                              "'" + name + "' cannot be the name of a place in a workbook.");
    }
    return append(name, formula, sheet);
}

void DefinedNames::setFormula(std::size_t index, const std::string& formula) {
    const pugi::xml_node node = nodes_.at(index);
    if (textOf(node) != formula) setText(node, formula, state_);
}

std::size_t DefinedNames::append(const std::string& name, const std::string& formula, int sheet) {
    pugi::xml_node names = ensureList();
    pugi::xml_node node = names.append_child(qualifiedName(names, "definedName").c_str());
    node.append_attribute("name").set_value(name.c_str());
    if (sheet != kWorkbook) node.append_attribute("localSheetId").set_value(sheet);
    node.append_child(pugi::node_pcdata).set_value(formula.c_str());
    list(node, sheet);
    state_.change([this, node] { undoAppend(node); });
    return nodes_.size() - 1;
}

pugi::xml_node DefinedNames::ensureList() {
    pugi::xml_node root = part_.root();
    pugi::xml_node names = childNamed(root, "definedNames");
    if (names) return names;
    names = root.insert_child_after(qualifiedName(root, "definedNames").c_str(), predecessor(root));
    // Names may have been added after the recorded step, so the list is removed only if it is empty again.
    state_.change([names, detachedNodes = part_.detachedNodes()]() mutable {
        if (!names.first_child()) detachedNodes.append_move(names);
    });
    return names;
}

void DefinedNames::undoAppend(pugi::xml_node node) {
    unlist(indexes_.at(keyOf(nameOf(node), knownScopeOf(node))));
    part_.detachedNodes().append_move(node);
}

void DefinedNames::remove(std::size_t index) {
    const pugi::xml_node node = nodes_.at(index);
    const pugi::xml_node next = node.next_sibling();
    pugi::xml_node names = node.parent();
    unlist(index);
    part_.detachedNodes().append_move(node);
    state_.change([this, node, next, names, index]() mutable {
        if (next) {
            names.insert_move_before(node, next);
        } else {
            names.append_move(node);
        }
        undoRemove(node, index);
    });
    removeEmptyList(names);
}

/// A list without names is not valid.
void DefinedNames::removeEmptyList(pugi::xml_node names) {
    if (names.first_child()) return;
    part_.detachedNodes().append_move(names);
    state_.change(
        [root = part_.root(), names]() mutable { root.insert_move_after(names, predecessor(root)); });
}

void DefinedNames::unlist(std::size_t index) {
    const std::string name(nameOf(nodes_.at(index)));
    indexes_.erase(keyOf(name, knownScopeOf(nodes_[index])));
    nodes_.erase(nodes_.begin() + static_cast<std::ptrdiff_t>(index));
    counters_.release(name);
    // The removed name is the last one, unless a name was removed or names were added after the recorded
    // step.
    if (index == nodes_.size()) return;
    for (auto& [other, position] : indexes_)
        if (position > index) --position;
}

void DefinedNames::undoRemove(pugi::xml_node node, std::size_t index) {
    for (auto& [other, position] : indexes_)
        if (position >= index) ++position;
    nodes_.insert(nodes_.begin() + static_cast<std::ptrdiff_t>(index), node);
    indexes_.emplace(keyOf(nameOf(node), knownScopeOf(node)), index);
}

std::int64_t DefinedNames::firstFreeCounter(const std::string& stem) {
    return counters_.firstFree(stem, [&](const std::string& name) { return find(name).has_value(); });
}

}  // namespace mergeloom::embedded
