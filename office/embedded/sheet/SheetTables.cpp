#include "office/embedded/sheet/SheetTables.h"

#include <utility>

namespace mergeloom::embedded {

SheetTables::SheetTables(opc::Package& package, std::string sheetPart, UndoLog& undo)
    : package_(package), sheetPart_(std::move(sheetPart)), undo_(undo) {}

void SheetTables::load() {
    if (loaded_) return;
    headers_.clear();
    const opc::Relationships& relationships = package_.relationshipsOf(sheetPart_);
    for (const opc::Relationship* relationship : relationships.ofOfficeType("table")) {
        const std::string name = relationships.targetPart(*relationship);
        if (!package_.hasPart(name)) continue;
        auto part = opc::XmlPart::parse(package_.readPart(name), name, package_.fileName());
        headers_.push_back(std::make_unique<TableHeader>(std::move(part), undo_));
    }
    loaded_ = true;
}

TableHeader* SheetTables::headerAt(const excel::CellPosition& cell) {
    load();
    for (const auto& header : headers_) {
        if (header->contains(cell)) return header.get();
    }
    return nullptr;
}

std::string SheetTables::allowedText(const excel::CellPosition& cell, const std::string& text) {
    const TableHeader* const header = headerAt(cell);
    return header == nullptr ? text : header->allowedText(cell, text);
}

void SheetTables::textWasSet(const excel::CellPosition& cell, const std::string& text) {
    TableHeader* const header = headerAt(cell);
    if (header != nullptr) header->rename(cell, text);
}

void SheetTables::store() {
    for (const auto& header : headers_) {
        if (!header->isDirty()) continue;
        package_.writePart(header->part().partName(), header->part().toXml());
        header->setStored();
    }
}

}  // namespace mergeloom::embedded
