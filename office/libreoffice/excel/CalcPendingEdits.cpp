#include "office/libreoffice/excel/CalcPendingEdits.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcNameChange.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/Border.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <tuple>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Returns runs of adjacent cells, row by row.
std::vector<excel::CellArea> runsOf(const std::map<excel::CellPosition, std::string>& texts) {
    std::vector<excel::CellArea> runs;
    for (const auto& [cell, text] : texts) {
        const bool continues =
            !runs.empty() && runs.back().last == excel::CellPosition{cell.row, cell.column - 1};
        if (continues) {
            runs.back().last = cell;
        } else {
            runs.push_back({cell, cell});
        }
    }
    return runs;
}

/// Returns rectangles that contain each of the cells once and no others: runs of adjacent cells, joined with
/// equal runs in the rows below.
std::vector<excel::CellArea> blocksOf(const std::map<excel::CellPosition, std::string>& texts) {
    std::vector<excel::CellArea> blocks;
    std::map<std::pair<int, int>, std::size_t> lastOfColumns;
    for (const excel::CellArea& run : runsOf(texts)) {
        const auto [found, isNew] =
            lastOfColumns.try_emplace({run.first.column, run.last.column}, blocks.size());
        const bool isBelow = !isNew && blocks[found->second].last.row == run.first.row - 1;
        if (isBelow) {
            blocks[found->second].last = run.last;
        } else {
            found->second = blocks.size();
            blocks.push_back(run);
        }
    }
    return blocks;
}

/// Limits the memory that pending changes take.
constexpr std::size_t kMaxPending = 50'000;

/// Writes a rectangle of texts at once. Must run within a call.
template <typename TextOf>
void write(const Reference<css::sheet::XSpreadsheet>& sheet, const excel::CellArea& area,
           const TextOf& textOf) {
    css::uno::Sequence<css::uno::Sequence<css::uno::Any>> rows(area.rows());
    css::uno::Sequence<css::uno::Any>* const row = rows.getArray();
    for (int index = 0; index < area.rows(); ++index)
        row[index].realloc(area.columns());
    forEachCell(area, [&](const excel::CellPosition& cell) {
        css::uno::Any* const values = row[cell.row - area.first.row].getArray();
        values[cell.column - area.first.column] <<= toUno(textOf(cell));
    });
    Reference<css::sheet::XCellRangeData>(rangeOf(sheet, area), UNO_QUERY_THROW)->setDataArray(rows);
}

excel::CellPosition leftOf(const excel::CellPosition& cell) {
    return {cell.row, cell.column - 1};
}

css::table::CellRangeAddress addressOf(std::size_t sheet, const excel::CellArea& area) {
    return {static_cast<sal_Int16>(sheet), area.first.column - 1, area.first.row - 1, area.last.column - 1,
            area.last.row - 1};
}

bool isLetter(char letter) {
    return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

bool isOfName(char letter) {
    return isLetter(letter) || (letter >= '0' && letter <= '9') || letter == '_';
}

}  // namespace

void CalcPendingEdits::addSheet(const Reference<css::sheet::XSpreadsheet>& cells, const std::string& name) {
    sheets_.push_back({cells, name, {}, {}});
}

void CalcPendingEdits::setText(std::size_t index, const excel::CellPosition& cell, const std::string& text) {
    auto& texts = sheets_.at(index).texts;
    const auto found = texts.find(cell);
    if (found == texts.end()) {
        undo_.record([this, index, cell] { sheets_[index].texts.erase(cell); });
    } else {
        undo_.record([this, index, cell, former = found->second] { sheets_[index].texts[cell] = former; });
    }
    texts[cell] = text;
    if (++waiting_ >= kMaxPending) flush();
}

/// Names that begin with four letters cannot be references in any notation.
bool CalcPendingEdits::canWait(const std::string& name) {
    constexpr std::size_t kLettersBeyondColumns = 4;
    return name.size() >= kLettersBeyondColumns &&
           std::ranges::all_of(name.substr(0, kLettersBeyondColumns), isLetter) &&
           std::ranges::all_of(name, isOfName);
}

void CalcPendingEdits::addName(std::size_t index, const excel::CellPosition& cell, const std::string& name) {
    undo_.record([this, index, name] {
        std::erase_if(sheets_[index].names, [&](const Name& other) { return other.name == name; });
    });
    sheets_.at(index).names.push_back({cell, name});
    if (++waiting_ >= kMaxPending) flush();
}

void CalcPendingEdits::flush() {
    if (waiting_ == 0) return;
    waiting_ = 0;
    connection_.call([&] {
        for (std::size_t index = 0; index < sheets_.size(); ++index) {
            // Names come first: they need cells that the texts then overwrite.
            const auto texts = std::exchange(sheets_[index].texts, {});
            recordFormer(index, texts);
            defineNames(index, std::exchange(sheets_[index].names, {}), texts);
            for (const excel::CellArea& block : blocksOf(texts)) {
                write(sheets_[index].cells, block,
                      [&](const excel::CellPosition& cell) { return texts.at(cell); });
                undo_.keepLocked();
            }
        }
    });
}

/// The undo action restores the document's contents and makes the texts pending again.
void CalcPendingEdits::recordFormer(std::size_t index, const Texts& texts) {
    if (!undo_.canUndo() || texts.empty()) return;
    std::vector<CalcFormerCells> former;
    for (const excel::CellArea& block : blocksOf(texts))
        former.emplace_back(sheets_[index].cells, block);
    undo_.recordExchangeLater([this, former = std::move(former)]() mutable {
        connection_.call([&] {
            for (CalcFormerCells& cells : former)
                cells.exchange([this] { lockAgain(undo_.manager()); });
        });
    });
    undo_.recordLater([this, index, texts] {
        sheets_[index].texts = texts;
        waiting_ += texts.size();
    });
}

/// Names for adjacent cells of a column can be defined in one call if texts are pending to their left.
void CalcPendingEdits::defineNames(std::size_t index, std::vector<Name> names, const Texts& texts) {
    const auto byColumn = [](const Name& name) { return std::tie(name.cell.column, name.cell.row); };
    std::ranges::stable_sort(names, {}, byColumn);
    for (auto first = names.cbegin(); first != names.cend();) {
        auto last = first + 1;
        while (last != names.cend() &&
               last->cell == excel::CellPosition{(last - 1)->cell.row + 1, first->cell.column})
            ++last;
        const bool haveTitles =
            std::all_of(first, last, [&](const Name& name) { return texts.contains(leftOf(name.cell)); });
        if (haveTitles && last - first > 1) {
            defineBesideTitles(index, {first, last});
        } else {
            std::for_each(first, last, [&](const Name& name) { defineOne(index, name); });
        }
        first = last;
    }
}

/// Calc creates names from titles beside the cells, which traverses its names only once.
void CalcPendingEdits::defineBesideTitles(std::size_t index, const std::vector<Name>& names) {
    const excel::CellArea titles{leftOf(names.front().cell), leftOf(names.back().cell)};
    const Reference<css::container::XIndexAccess> defined(names_, UNO_QUERY_THROW);
    const auto expected = defined->getCount() + static_cast<sal_Int32>(names.size());
    write(sheets_[index].cells, titles, [&](const excel::CellPosition& cell) {
        return names[static_cast<std::size_t>(cell.row - titles.first.row)].name;
    });
    undo_.keepLocked();
    names_->addNewFromTitles(addressOf(index, {titles.first, names.back().cell}), css::sheet::Border_LEFT);
    if (defined->getCount() != expected)
        throw AutomationError(kCommandFailed, "LibreOffice could not do it: names were not accepted.");
    for (const Name& name : names)
        recordDefined(index, name);
}

void CalcPendingEdits::defineOne(std::size_t index, const Name& name) {
    const std::string reference =
        referenceOnSheet(sheets_[index].name, excel::absoluteAddressOf({name.cell, name.cell}));
    names_->addNewByName(toUno(name.name), toUno(reference), {}, 0);
    recordDefined(index, name);
}

void CalcPendingEdits::recordDefined(std::size_t index, const Name& name) {
    if (!undo_.canUndo()) return;
    undo_.recordExchangeLater([this, change = CalcNameChange(names_, toUno(name.name))]() mutable {
        connection_.call([&] { change.exchange(); });
    });
    undo_.recordLater([this, index, name] {
        sheets_[index].names.push_back(name);
        ++waiting_;
    });
}

}  // namespace mergeloom::libreoffice
