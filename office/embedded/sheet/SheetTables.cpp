#include "office/embedded/sheet/SheetTables.h"

#include "base/Text.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/embedded/sheet/XmlText.h"

#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr CharacterCount kMaxNameLength{255};
constexpr const char* kUnnamed = "Column";

std::string foldedName(pugi::xml_node column) {
    return foldCase(decodeXstring(column.attribute("name").value()));
}

/// Returns a name as its attribute stores it; line breaks are escaped, since an attribute would not keep
/// them.
std::string encodedName(const std::string& text) {
    return replaceAll(replaceAll(encodeXstring(text), "\n", "_x000a_"), "\t", "_x0009_");
}

/// Returns a stem with a number appended, shortened to the maximum length of a name.
std::string numbered(std::string_view stem, int number) {
    const std::string digits = std::to_string(number);
    const CharacterCount room = kMaxNameLength - utf16Length(digits);
    return std::string(firstCharacters(stem, room)) + digits;
}

constexpr std::string_view kTableType = ".spreadsheetml.table+xml";

std::set<std::string> readNames(const opc::Package& package) {
    std::set<std::string> names;
    for (const std::string& partName : package.partNames()) {
        if (!package.contentTypes().of(partName).ends_with(kTableType)) continue;
        const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
        names.insert(foldCase(part->root().attribute("displayName").value()));
    }
    return names;
}

}  // namespace

TableHeader::TableHeader(std::unique_ptr<opc::XmlPart> part, UndoLog& undo)
    : part_(std::move(part)), state_(undo) {
    readColumns();
}

void TableHeader::readColumns() {
    const pugi::xml_node table = part_->root();
    const std::optional<excel::CellArea> area = excel::parseArea(table.attribute("ref").value());
    if (!area || table.attribute("headerRowCount").as_int(1) == 0) return;
    first_ = area->first;
    const pugi::xml_node list = childNamed(table, "tableColumns");
    for (const pugi::xml_node column : childrenNamed(list, "tableColumn")) {
        columns_.push_back(column);
        ++names_[foldedName(column)];
    }
}

bool TableHeader::contains(const excel::CellPosition& cell) const {
    return columnAt(cell);
}

pugi::xml_node TableHeader::columnAt(const excel::CellPosition& cell) const {
    if (cell.row != first_.row || cell.column < first_.column) return {};
    const auto index = static_cast<std::size_t>(cell.column - first_.column);
    return index < columns_.size() ? columns_[index] : pugi::xml_node();
}

bool TableHeader::isTaken(const std::string& name, pugi::xml_node besides) const {
    const std::string folded = foldCase(name);
    const auto found = names_.find(folded);
    const int own = foldedName(besides) == folded ? 1 : 0;
    return found != names_.end() && found->second > own;
}

std::string TableHeader::allowedText(const excel::CellPosition& cell, const std::string& text) const {
    const pugi::xml_node column = columnAt(cell);
    std::string cut(firstCharacters(text, kMaxNameLength));
    if (!cut.empty() && !isTaken(cut, column)) return cut;
    const std::string stem = cut.empty() ? kUnnamed : cut;
    int number = cut.empty() ? 1 : 2;
    while (isTaken(numbered(stem, number), column))
        ++number;
    return numbered(stem, number);
}

void TableHeader::rename(const excel::CellPosition& cell, const std::string& text) {
    const pugi::xml_node column = columnAt(cell);
    const std::string name = encodedName(text);
    if (name == column.attribute("name").value()) return;
    const std::string former = foldedName(column);
    setAttribute(column, "name", name, state_);
    const std::string now = foldedName(column);
    const auto count = [this](const std::string& out, const std::string& in) {
        --names_[out];
        ++names_[in];
    };
    count(former, now);
    state_.change([count, former, now] { count(now, former); });
}

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

bool TableNames::has(const std::string& name) {
    if (!names_) names_ = readNames(package_);
    return names_->contains(foldCase(name));
}

}  // namespace mergeloom::embedded
