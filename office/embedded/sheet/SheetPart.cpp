#include "office/embedded/sheet/SheetPart.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/ColumnStyles.h"
#include "office/embedded/sheet/FormulaHandover.h"
#include "office/embedded/sheet/RowHeights.h"
#include "office/embedded/sheet/SheetState.h"
#include "office/embedded/sheet/SheetWriter.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlEncoding.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/opc/UnreadableFile.h"

#include <utility>

namespace mergeloom::embedded {

class SheetPart::Data {
  public:
    Data(std::string xml, std::string part, UndoLog& log)
        : state(std::move(xml)), partName(std::move(part)), undo_(log) {}

    /// Puts an edit in place of a cell's former one.
    void change(const excel::CellPosition& cell, std::optional<CellEdit> edit) {
        record(
            [this, cell](std::optional<CellEdit> former) { state.edits.exchange(cell, std::move(former)); },
            state.edits.exchange(cell, std::move(edit)));
    }

    void changeHeight(int row, double points) {
        record([this, row](std::optional<double> former) { state.edits.exchangeHeight(row, former); },
               state.edits.exchangeHeight(row, points));
    }

    void changeSection(const std::string& name, std::string xml) {
        record([this, name](
                   std::optional<std::string> former) { state.sections.exchange(name, std::move(former)); },
               state.sections.exchange(name, std::move(xml)));
    }

    void declare(const std::string& prefix, const std::string& uri) {
        state.root.declare(prefix, uri);
        record([this](const std::string& declared) { state.root.takeBack(declared); }, prefix);
    }

    /// Lets another cell have the text of a shared formula before its master loses it.
    void handOver(const excel::CellPosition& master) {
        const std::optional<FormulaHandover> plan = planHandover(state, master);
        if (!plan) return;
        for (const FormulaHandover::Heir& heir : plan->heirs)
            change(heir.cell, CellEdit{CellEdit::Kind::Formula, heir.formula});
        const int group = plan->group;
        const std::optional<excel::CellPosition> heir =
            plan->hasNewMaster ? std::optional(plan->heirs.back().cell) : std::nullopt;
        FormulaGroups& formulas = state.index.formulaGroups;
        formulas.remove(group, master);
        if (heir) formulas.add(group, *heir);
        record(
            [this, group, heir](const excel::CellPosition& former) {
                if (heir) state.index.formulaGroups.remove(group, *heir);
                state.index.formulaGroups.add(group, former);
            },
            master);
    }

    SheetState state;
    std::string partName;
    int changes = 0;

  private:
    /// Counts a change that was just made, and keeps what it took the place of while a step is recorded.
    template <typename Restore, typename Former>
    void record(Restore restore, Former former) {
        ++changes;
        if (!undo_.isRecording()) return;
        undo_.record([this, restore = std::move(restore), former = std::move(former)]() mutable {
            restore(std::move(former));
            --changes;
        });
    }

    UndoLog& undo_;
};

SheetPart::SheetPart(std::string xml, const std::string& partName, const std::string& fileName,
                     UndoLog& undo) {
    std::string text = toUtf8Xml(std::move(xml), partName, fileName);
    try {
        data_ = std::make_unique<Data>(std::move(text), partName, undo);
    } catch (const BadXml& problem) {
        opc::raiseUnreadable(fileName, "its part " + opc::quoted(partName) + " " + problem.what());
    }
}

SheetPart::~SheetPart() = default;

const std::string& SheetPart::partName() const {
    return data_->partName;
}

bool SheetPart::isStrict() const {
    return data_->state.root.isStrict();
}

std::string SheetPart::elementName(std::string_view localName) const {
    return data_->state.index.prefix + std::string(localName);
}

std::string SheetPart::section(std::string_view localName) const {
    return localName == "sheetData" ? "" : data_->state.sections.text(localName);
}

void SheetPart::setSection(std::string_view localName, std::string xml) {
    if (section(localName) == xml) return;
    data_->changeSection(std::string(localName), std::move(xml));
}

std::string SheetPart::declareNamespace(std::string_view preferredPrefix, std::string_view uri) {
    std::string prefix = data_->state.root.prefixFor(uri);
    if (!prefix.empty()) return prefix;
    prefix = data_->state.root.freePrefix(preferredPrefix);
    data_->declare(prefix, std::string(uri));
    return prefix;
}

StoredCell SheetPart::cell(const excel::CellPosition& position) const {
    const SheetState& state = data_->state;
    const std::string xml = state.cells.current(position);
    StoredCell cell = readCell(xml, state.index.prefix);
    cell.formula = formulaOf(state, position, xml);
    if (cell.arrayArea || state.edits.find(position)) return cell;
    const std::optional<excel::CellArea> array = state.index.arrays.find(position);
    // An array formula whose first cell was written over is none any more.
    if (array && !state.edits.find(array->first)) cell.arrayArea = array;
    return cell;
}

void SheetPart::setText(const excel::CellPosition& position, const std::string& text) {
    const SheetState& state = data_->state;
    CellEdit edit{CellEdit::Kind::Text, text};
    if (state.cells.stored(position).empty()) edit.newStyle = styleOfNewCell(state, position);
    data_->handOver(position);
    data_->change(position, std::move(edit));
}

std::optional<excel::CellArea> SheetPart::usedArea() const {
    const SheetState& state = data_->state;
    std::optional<excel::CellArea> used;
    const auto take = [&used](const excel::CellPosition& cell) {
        used = used ? enclosing(*used, {cell, cell}) : excel::CellArea{cell, cell};
    };
    const auto takeStored = [&](const excel::CellPosition& cell, std::string_view) {
        take(cell);
        return true;
    };
    state.cells.forEachIn({{1, 1}, {excel::kLastRow, excel::kLastColumn}}, takeStored);
    for (const auto& [row, edits] : state.edits.rows()) {
        for (const auto& [column, edit] : edits.cells)
            take({row, column});
    }
    return used;
}

void SheetPart::forEachRowHeight(const std::function<void(const StoredRowHeight&)>& visit) const {
    visitRowHeights(data_->state, visit);
}

void SheetPart::setRowHeight(int row, double points) {
    data_->changeHeight(row, points);
}

bool SheetPart::isDirty() const {
    return data_->changes != 0;
}

std::string SheetPart::toXml() const {
    return writeSheet(data_->state);
}

}  // namespace mergeloom::embedded
