#include "office/embedded/books/BookRenderer.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/parts/RichText.h"
#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/SheetReference.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mergeloom::embedded {

namespace {

using Kind = BookPiece::Kind;

template <typename Number>
void appendNumber(std::string& xml, Number number) {
    std::array<char, 32> text{};
    xml.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr);
}

/// Returns the control at the end of a path, whose first steps were already taken to a record.
const RecordControl* controlAt(const Record* record, std::span<const std::string> path) {
    const RecordControl* control = nullptr;
    for (const std::string& name : path) {
        if (control != nullptr) record = control->records.empty() ? nullptr : &control->records.front();
        control = record == nullptr ? nullptr : record->find(name);
        if (control == nullptr) return nullptr;
    }
    return control;
}

}  // namespace

void BookRenderer::begin(std::span<const Record> records) {
    records_ = records;
    usesDates_ = false;
    listed_.clear();
    for (const BookTable& table : places_.tables) {
        const RecordControl* const control = controlAt(&records.front(), table.path);
        listed_.push_back(table.path.empty()   ? records
                          : control == nullptr ? std::span<const Record>()
                                               : std::span<const Record>(control->records));
    }
    for (RowMap& map : places_.maps) {
        for (std::size_t group = 0; group < map.groups().size(); ++group)
            map.setCopies(group, 1);
    }
    for (std::size_t number = 0; number < listed_.size(); ++number) {
        const BookTable& table = places_.tables[number];
        RowMap& map = places_.maps[table.sheet];
        const int copies = map.groups()[table.group].copies;
        map.setCopies(table.group, std::max(copies, static_cast<int>(listed_[number].size())));
    }
    for (std::size_t sheet = 0; sheet < places_.maps.size(); ++sheet) {
        const RowMap& map = places_.maps[sheet];
        if (map.isEmpty()) continue;
        const std::size_t last = map.groups().size() - 1;
        if (std::max(map.lastRowOf(last), map.row(book_.lastRows[sheet])) <= excel::kLastRow) continue;
        throw AutomationError(
            kNotAvailable, "The sheet '" + book_.sheetNames[sheet] + "' has too few rows for the records.");
    }
}

std::string BookRenderer::render(const CutBookPart& part) {
    part_ = &part;
    copy_ = 0;
    xml_.clear();
    xml_.reserve(lastSize_);
    append(part.pieces);
    lastSize_ = std::max(lastSize_, xml_.size());
    return std::move(xml_);
}

void BookRenderer::append(const BookPieces& pieces) {
    for (const BookPiece& piece : pieces)
        appendPiece(piece);
}

void BookRenderer::appendPiece(const BookPiece& piece) {
    switch (piece.kind) {
        case Kind::Fixed:
            xml_ += piece.xml;
            break;
        case Kind::Row:
            appendRowNumber(piece, 1);
            break;
        case Kind::RowFromZero:
            appendRowNumber(piece, 0);
            break;
        case Kind::Break:
            appendBreak(static_cast<int>(piece.number));
            break;
        case Kind::Formula:
            appendFormula(piece.number);
            break;
        case Kind::Areas:
            appendAreas(part_->areas[piece.number]);
            break;
        case Kind::Value:
            appendValue(piece);
            break;
        case Kind::Rows:
            appendRows(piece);
            break;
        case Kind::FirstOnly:
            append(copy_ == 0 ? piece.inside : piece.otherwise);
            break;
        case Kind::Hidden:
            appendHidden(piece.number);
            break;
        case Kind::HiddenTable:
            if (removesTables()) appendHidden(piece.number);
            break;
        case Kind::Height:
            appendHeight(piece);
            break;
        case Kind::Merges:
            appendMerges();
            break;
        case Kind::Names:
            appendNames();
            break;
    }
}

void BookRenderer::appendRowNumber(const BookPiece& piece, int first) {
    const RowMap& map = places_.maps[part_->sheet];
    const int row = static_cast<int>(piece.number) - first + 1;
    const int offset = copy_ == 0 ? 0 : map.groups()[group_].height() * copy_;
    appendNumber(xml_, map.row(row) + offset + first - 1);
}

void BookRenderer::appendBreak(int row) {
    const RowMap& map = places_.maps[part_->sheet];
    const std::optional<std::size_t> group = map.groupAt(row);
    const bool isAtEnd = group && map.groups()[*group].last == row;
    appendNumber(xml_, isAtEnd ? map.lastRowOf(*group) : map.row(row));
}

void BookRenderer::appendFormula(std::size_t number) {
    FormulaPlace place = part_->formulaPlaces[number];
    place.copy = copy_;
    xml_ += escapeXml(part_->formulas[number].text(places_.maps, place));
}

void BookRenderer::appendAreas(const MovableAreas& areas) {
    const RowMap& map = places_.maps[areas.sheet];
    bool isFirst = true;
    for (const excel::CellArea& area : areas.areas) {
        const std::optional<excel::CellArea> moved =
            areas.group ? std::optional(map.areaInCopy(area, *areas.group, copy_)) : map.area(area);
        if (!moved) continue;
        if (!isFirst) xml_ += ' ';
        xml_ += addressOf(*moved);
        isFirst = false;
    }
}

const RecordControl* BookRenderer::controlOf(const BookPlace& place, int number) const {
    const std::span<const std::string> path = place.source.path;
    if (!place.table) return controlAt(&records_.front(), path);
    const BookTable& table = places_.tables[*place.table];
    const bool isOfTable =
        path.size() > table.path.size() && std::equal(table.path.begin(), table.path.end(), path.begin());
    if (!isOfTable) return controlAt(&records_.front(), path);
    const std::span<const Record> records = listed_[*place.table];
    const auto copy = static_cast<std::size_t>(number);
    return copy < records.size() ? controlAt(&records[copy], path.subspan(table.path.size())) : nullptr;
}

int BookRenderer::copiesOf(const BookPlace& place) const {
    if (!place.table) return 1;
    const BookTable& table = places_.tables[*place.table];
    if (isEmpty(table.sheet, table.group)) return 0;
    return places_.maps[table.sheet].groups()[table.group].copies;
}

/// Makes a row as high as the highest new picture in it.
void BookRenderer::appendHeight(const BookPiece& piece) {
    double height = 0;
    for (const auto& [key, points] : heights_) {
        const BookPlace& place = places_.places[key.first];
        const bool isHere = place.sheet == part_->sheet && key.second == copy_ &&
                            static_cast<std::size_t>(place.cell.row) == piece.number;
        if (isHere) height = std::max(height, points);
    }
    if (height == 0) {
        xml_ += piece.xml;
        return;
    }
    xml_ += " ht=\"";
    appendNumber(xml_, std::min(height, excel::kHighestRow.value));
    xml_ += "\" customHeight=\"1\"";
}

void BookRenderer::appendValue(const BookPiece& piece) {
    const BookPlace& place = places_.places[piece.number];
    const RecordControl* const control = controlOf(place, copy_);
    const CellValue value = control == nullptr ? CellValue{} : valueOf(*control, piece.number);
    appendStyle(book_.placeStyles[piece.number], value.kind);
    if (value.kind == CellValue::Kind::Empty) {
        xml_ += '>';
    } else if (value.kind == CellValue::Kind::Text) {
        xml_ += " t=\"inlineStr\">";
        appendText(*control, value.text);
    } else {
        xml_ += value.kind == CellValue::Kind::Boolean ? " t=\"b\"><" : "><";
        xml_ += part_->prefix + "v>" + value.text + "</" + part_->prefix + "v>";
    }
    xml_ += piece.xml;
}

/// Returns the value of a control for a place. Rich text without a plain one is shown without its formatting.
CellValue BookRenderer::valueOf(const RecordControl& control, std::size_t number) {
    const letters::ValueKind kind = places_.places[number].source.value;
    CellValue value = cellValueOf(control, kind, book_.placeFormats[number], book_.dates);
    const bool isRich = value.kind == CellValue::Kind::Empty && kind == letters::ValueKind::Display &&
                        !control.richText.empty();
    if (!isRich) return value;
    const auto paragraphs = readRichText(control.richText);
    if (!paragraphs)
        remarks_.insert("The rich text of " + control.name + " is broken; its plain text was taken.");
    value.text = paragraphs ? plainTextOf(*paragraphs) : withoutTags(control.richText);
    if (!value.text.empty()) value.kind = CellValue::Kind::Text;
    return value;
}

void BookRenderer::appendStyle(int style, CellValue::Kind kind) {
    const int styleOfValue = styles_.styleOf(style, kind);
    usesDates_ = usesDates_ || styleOfValue != style;
    if (styleOfValue == 0) return;
    xml_ += " s=\"";
    appendNumber(xml_, styleOfValue);
    xml_ += '"';
}

void BookRenderer::appendText(const RecordControl& control, const std::string& text) {
    if (utf16Length(text) <= excel::kMaxCellText) {
        xml_ += inlineTextXml(text, part_->prefix);
        return;
    }
    remarks_.insert("A value of " + control.name + " is longer than a cell can be; its end was left out.");
    xml_ += inlineTextXml(firstCharacters(text, excel::kMaxCellText), part_->prefix);
}

void BookRenderer::appendRows(const BookPiece& piece) {
    group_ = piece.number;
    const int copies = places_.maps[part_->sheet].groups()[group_].copies;
    for (copy_ = 0; copy_ < copies; ++copy_)
        append(piece.inside);
    copy_ = 0;
}

void BookRenderer::appendMerges() {
    const RowMap& map = places_.maps[part_->sheet];
    std::string merges;
    int count = 0;
    const auto add = [&](const excel::CellArea& area) {
        merges += "<" + part_->prefix + "mergeCell ref=\"" + addressOf(area) + "\"/>";
        ++count;
    };
    for (const excel::CellArea& area : part_->merges) {
        const std::optional<std::size_t> group = map.groupAt(area.first.row);
        const bool isRepeated = group && map.groups()[*group].isPattern(area.first.row) &&
                                area.last.row <= map.groups()[*group].last;
        if (!isRepeated) {
            const std::optional<excel::CellArea> moved = map.area(area);
            if (moved) add(*moved);
            continue;
        }
        for (int copy = 0; copy < map.groups()[*group].copies; ++copy)
            add(map.areaInCopy(area, *group, copy));
    }
    if (count == 0) return;
    xml_ += "<" + part_->prefix + "mergeCells count=\"" + std::to_string(count) + "\">" + merges + "</" +
            part_->prefix + "mergeCells>";
}

void BookRenderer::appendNames() {
    std::size_t number = 0;
    for (std::size_t sheet = 0; sheet < places_.maps.size(); ++sheet) {
        const RowMap& map = places_.maps[sheet];
        for (std::size_t group = 0; group < map.groups().size(); ++group) {
            const RepeatedRows& rows = map.groups()[group];
            const std::string count = std::to_string(++number);
            const int first = map.row(rows.first);
            const int last = map.row(rows.last);
            if (rows.copies > 1) appendName(kAddedRowsName + count, sheet, last + 1, map.lastRowOf(group));
            if (isEmpty(sheet, group)) appendName(kHiddenRowsName + count, sheet, first, last);
        }
    }
    if (removesTables()) appendNamesOfTables();
}

/// Marks the rows of tables that are hidden with their captions.
void BookRenderer::appendNamesOfTables() {
    for (std::size_t number = 0; number < places_.tables.size(); ++number) {
        const BookTable& table = places_.tables[number];
        if (!isEmpty(table.sheet, table.group)) continue;
        const std::optional<excel::CellArea> area = places_.maps[table.sheet].area(table.area);
        appendName(kHiddenRowsName + ("Table" + std::to_string(number + 1)), table.sheet, area->first.row,
                   area->last.row);
    }
}

void BookRenderer::appendName(const std::string& name, std::size_t sheet, int first, int last) {
    const excel::CellArea rows{{first, 1}, {last, excel::kLastColumn}};
    xml_ += "<" + book_.prefix + "definedName name=\"" + name + "\" hidden=\"1\">" +
            escapeXml(excel::referenceText({book_.sheetNames[sheet], rows})) + "</" + book_.prefix +
            "definedName>";
}

void BookRenderer::appendHidden(std::size_t group) {
    if (isEmpty(part_->sheet, group)) xml_ += " hidden=\"1\"";
}

bool BookRenderer::isEmpty(std::size_t sheet, std::size_t group) const {
    for (std::size_t number = 0; number < listed_.size(); ++number) {
        const BookTable& table = places_.tables[number];
        if (table.sheet == sheet && table.group == group && !listed_[number].empty()) return false;
    }
    return true;
}

}  // namespace mergeloom::embedded
