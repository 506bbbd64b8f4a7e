#include "office/embedded/sheet/TableHeader.h"

#include "base/Text.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/embedded/sheet/XmlText.h"

#include <optional>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr CharacterCount kLongestName{255};
constexpr const char* kUnnamed = "Column";

std::string foldedName(pugi::xml_node column) {
    return foldCase(decodeXstring(column.attribute("name").value()));
}

/// A name as its attribute holds it, which would not keep line breaks.
std::string encodedName(const std::string& text) {
    return replaceAll(replaceAll(encodeXstring(text), "\n", "_x000a_"), "\t", "_x0009_");
}

/// A stem with a number behind it, no longer than a name can be.
std::string numbered(std::string_view stem, int number) {
    const std::string digits = std::to_string(number);
    const CharacterCount room = kLongestName - utf16Length(digits);
    return std::string(stem.substr(0, byteOffset(stem, room))) + digits;
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
    std::string cut = text.substr(0, byteOffset(text, kLongestName));
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

}  // namespace mergeloom::embedded
