#include "office/embedded/sheet/CalculationChain.h"

#include "office/embedded/sheet/TreeEdit.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

constexpr const char* kChainType = "calcChain";

/// Combines sheet, row (21 bits) and column (15 bits) into one key.
std::uint64_t keyOf(int sheetId, const excel::CellPosition& cell) {
    return static_cast<std::uint64_t>(sheetId) << 36U | static_cast<std::uint64_t>(cell.row) << 15U |
           static_cast<std::uint64_t>(cell.column);
}

/// An entry without a sheet inherits that of the one before it, and the marks of a new level or thread apply
/// to all entries up to the next mark. So the next entry takes these attributes over from an entry that is
/// removed.
void passAttributesOn(pugi::xml_node entry, PartState& state) {
    const pugi::xml_node next = nextElement(entry);
    if (std::string_view(next.name()) != entry.name()) return;
    for (const char* name : {"i", "l", "t"}) {
        const pugi::xml_attribute attribute = entry.attribute(name);
        if (attribute && !next.attribute(name)) setAttribute(next, name, attribute.value(), state);
    }
}

}  // namespace

CalculationChain::CalculationChain(opc::Package& package, std::string workbookPart, UndoLog& undo)
    : package_(package), workbookPart_(std::move(workbookPart)), state_(undo) {}

void CalculationChain::load() {
    if (loaded_) return;
    const opc::Relationships& relationships = package_.relationshipsOf(workbookPart_);
    const auto found = relationships.ofOfficeType(kChainType);
    const std::string partName = found.empty() ? "" : relationships.targetPart(*found.front());
    if (package_.hasPart(partName)) {
        relationshipType_ = found.front()->type;
        contentType_ = package_.contentTypes().of(partName);
        part_ = opc::XmlPart::parse(package_.readPart(partName), partName, package_.fileName());
        readEntries();
    }
    loaded_ = true;
}

void CalculationChain::readEntries() {
    const pugi::xml_node root = part_->root();
    int sheetId = 0;
    for (const pugi::xml_node entry : childrenNamed(root, "c")) {
        sheetId = entry.attribute("i").as_int(sheetId);
        const std::optional<excel::CellPosition> cell = excel::parseCell(entry.attribute("r").value());
        if (cell) entries_.emplace(keyOf(sheetId, *cell), entry);
    }
}

void CalculationChain::remove(int sheetId, const excel::CellPosition& cell) {
    load();
    const CellKey key = keyOf(sheetId, cell);
    for (auto found = entries_.find(key); found != entries_.end(); found = entries_.find(key)) {
        const pugi::xml_node entry = found->second;
        entries_.erase(found);
        removeEntry(key, entry);
    }
}

void CalculationChain::removeEntry(CellKey key, pugi::xml_node entry) {
    passAttributesOn(entry, state_);
    pugi::xml_node parent = entry.parent();
    const pugi::xml_node before = entry.previous_sibling();
    part_->detachedNodes().append_move(entry);
    state_.change([this, key, entry, parent, before]() mutable {
        before ? parent.insert_move_after(entry, before) : parent.prepend_move(entry);
        entries_.emplace(key, entry);
    });
}

void CalculationChain::clear() {
    load();
    while (!entries_.empty()) {
        const auto [key, entry] = *entries_.begin();
        entries_.erase(entries_.begin());
        removeEntry(key, entry);
    }
}

void CalculationChain::store() {
    if (!state_.isDirty()) return;
    childNamed(part_->root(), "c") ? put() : drop();
    state_.setStored();
}

void CalculationChain::put() {
    const std::string& name = part_->partName();
    const bool isNew = !package_.hasPart(name);
    package_.addPart(name, contentType_, part_->toXml());
    if (isNew) package_.relationshipsOf(workbookPart_).addPart(relationshipType_, name);
}

void CalculationChain::drop() {
    package_.removePart(part_->partName());
    opc::Relationships& relationships = package_.relationshipsOf(workbookPart_);
    std::vector<std::string> ids;
    for (const opc::Relationship* relationship : relationships.ofOfficeType(kChainType))
        ids.push_back(relationship->id);
    for (const std::string& id : ids)
        relationships.remove(id);
}

}  // namespace mergeloom::embedded
