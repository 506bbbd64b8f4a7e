#include "office/libreoffice/excel/CalcPending.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcAddress.h"
#include "office/libreoffice/excel/CalcBlocks.h"
#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcFormerCells.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/Border.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <tuple>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// So that what waits does not fill the memory.
constexpr std::size_t kMostThatWait = 50'000;

/// Writes a rectangle of texts in one call. Within a call.
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

void CalcPending::addSheet(const Reference<css::sheet::XSpreadsheet>& cells, const std::string& name) {
    sheets_.push_back({cells, name, {}, {}});
}

void CalcPending::setText(std::size_t index, const excel::CellPosition& cell, const std::string& text) {
    auto& texts = sheets_.at(index).texts;
    const auto found = texts.find(cell);
    if (found == texts.end()) {
        undo_.keep([this, index, cell] { sheets_[index].texts.erase(cell); });
    } else {
        undo_.keep([this, index, cell, former = found->second] { sheets_[index].texts[cell] = former; });
    }
    texts[cell] = text;
    if (++waiting_ >= kMostThatWait) settle();
}

/// Four letters at the front are no column in any notation.
bool CalcPending::mayWait(const std::string& name) {
    constexpr std::size_t kMoreThanColumn = 4;
    return name.size() >= kMoreThanColumn && std::ranges::all_of(name.substr(0, kMoreThanColumn), isLetter) &&
           std::ranges::all_of(name, isOfName);
}

void CalcPending::addName(std::size_t index, const excel::CellPosition& cell, const std::string& name) {
    undo_.keep([this, index, name] {
        std::erase_if(sheets_[index].names, [&](const Name& other) { return other.name == name; });
    });
    sheets_.at(index).names.push_back({cell, name});
    if (++waiting_ >= kMostThatWait) settle();
}

void CalcPending::settle() {
    if (waiting_ == 0) return;
    waiting_ = 0;
    connection_.call([&] {
        for (std::size_t index = 0; index < sheets_.size(); ++index) {
            // The names first: they make use of cells that the texts are written over.
            const auto texts = std::exchange(sheets_[index].texts, {});
            keepFormer(index, texts);
            defineNames(index, std::exchange(sheets_[index].names, {}), texts);
            for (const excel::CellArea& block : blocksOf(texts))
                write(sheets_[index].cells, block,
                      [&](const excel::CellPosition& cell) { return texts.at(cell); });
        }
    });
}

/// The way back leads to what the document held, with the texts waiting again.
void CalcPending::keepFormer(std::size_t index, const Texts& texts) {
    if (!undo_.mayTakeBack() || texts.empty()) return;
    std::vector<CalcFormerCells> former;
    for (const excel::CellArea& block : blocksOf(texts))
        former.emplace_back(sheets_[index].cells, block);
    undo_.keepLater([this, index, texts, former = std::move(former)] {
        connection_.call([&] { std::ranges::for_each(former, &CalcFormerCells::restore); });
        sheets_[index].texts = texts;
        waiting_ += texts.size();
    });
}

/// Names for cells below one another, left of which texts wait, can be had in one call.
void CalcPending::defineNames(std::size_t index, std::vector<Name> names, const Texts& texts) {
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

/// Calc makes names of titles beside the cells, going through its names but once.
void CalcPending::defineBesideTitles(std::size_t index, const std::vector<Name>& names) {
    const excel::CellArea titles{leftOf(names.front().cell), leftOf(names.back().cell)};
    const Reference<css::container::XIndexAccess> defined(names_, UNO_QUERY_THROW);
    const auto expected = defined->getCount() + static_cast<sal_Int32>(names.size());
    write(sheets_[index].cells, titles, [&](const excel::CellPosition& cell) {
        return names[static_cast<std::size_t>(cell.row - titles.first.row)].name;
    });
    names_->addNewFromTitles(addressOf(index, {titles.first, names.back().cell}), css::sheet::Border_LEFT);
    if (defined->getCount() != expected)
        throw AutomationError(kCommandFailed, "LibreOffice could not do it: names were not accepted.");
    for (const Name& name : names)
        keepDefined(index, name);
}

void CalcPending::defineOne(std::size_t index, const Name& name) {
    const std::string reference =
        referenceOnSheet(sheets_[index].name, excel::absoluteAddressOf({name.cell, name.cell}));
    names_->addNewByName(toUno(name.name), toUno(reference), {}, 0);
    keepDefined(index, name);
}

void CalcPending::keepDefined(std::size_t index, const Name& name) {
    if (!undo_.mayTakeBack()) return;
    undo_.keepLater([this, index, name] {
        connection_.call([&] { names_->removeByName(toUno(name.name)); });
        sheets_[index].names.push_back(name);
        ++waiting_;
    });
}

}  // namespace mergeloom::libreoffice
