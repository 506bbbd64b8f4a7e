#include "office/embedded/sheet/SheetPart.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/SharedFormula.h"
#include "office/embedded/sheet/SheetState.h"
#include "office/embedded/sheet/SheetWriter.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/opc/UnreadableFile.h"

#include <charconv>
#include <utility>

namespace mergeloom::embedded {

namespace {

std::optional<int> styleOfRow(const SheetState& sheet, int row) {
    const std::string_view tag = sheet.cells.rowTag(row);
    if (tag.empty()) return {};
    const XmlTag parts(tag);
    if (!isSet(parts.attributes(), "customFormat")) return {};
    return findNumber(parts.attributes(), "s");
}

int styleOfColumn(const SheetState& sheet, int column) {
    const std::string columns = sheet.sections.text("cols");
    XmlScanner scanner(columns);
    while (scanner.next()) {
        if (!isElement(scanner.name(), sheet.index.prefix, "col")) continue;
        const int first = findNumber(scanner.attributes(), "min").value_or(0);
        const int last = findNumber(scanner.attributes(), "max").value_or(first);
        if (column < first || column > last) continue;
        return findNumber(scanner.attributes(), "style").value_or(0);
    }
    return 0;
}

/// Returns the index of the format of a new cell: that of its row if the row has one of its own, else that of
/// its column (ECMA-376 Part 1, 18.3.1.13, 18.3.1.73).
int styleOfNewCell(const SheetState& sheet, const excel::CellPosition& cell) {
    const std::optional<int> style = styleOfRow(sheet, cell.row);
    return style ? *style : styleOfColumn(sheet, cell.column);
}

std::optional<double> parseHeight(std::string_view text) {
    double points = 0;
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), points);
    if (result.ec != std::errc() || points < 0) return {};
    return points;
}

std::optional<double> storedHeight(std::string_view rowXml) {
    XmlScanner scanner(rowXml);
    scanner.next();
    if (isSet(scanner.attributes(), "hidden")) return 0;
    return parseHeight(findAttribute(scanner.attributes(), "ht").value_or(""));
}

/// Returns true if an edit gives a cell other content.
bool replacesContent(const SheetState& state, const excel::CellPosition& cell) {
    const CellEdit* const edit = state.edits.find(cell);
    return edit != nullptr && edit->kind != CellEdit::Kind::None && edit->kind != CellEdit::Kind::Result;
}

/// Visits the rows that have a height of their own or are hidden, with their edits, in order.
void visitRowHeights(const SheetState& sheet, const std::function<void(const StoredRowHeight&)>& visit) {
    auto edit = sheet.edits.rows().begin();
    const auto editsEnd = sheet.edits.rows().end();
    const auto visitEditsBefore = [&](int row) {
        for (; edit != editsEnd && edit->first < row; ++edit) {
            if (edit->second.height) visit({edit->first, *edit->second.height});
        }
    };
    for (const IndexedRow& row : sheet.index.rows) {
        visitEditsBefore(row.number);
        if (edit != editsEnd && edit->first == row.number && edit->second.height) continue;
        if (const auto points = storedHeight(row.range.of(sheet.xml))) visit({row.number, *points});
    }
    visitEditsBefore(excel::kLastRow + 1);
}

}  // namespace

class SheetPart::Data {
  public:
    Data(std::string xml, std::string part, UndoLog& log)
        : state(std::move(xml)), partName(std::move(part)), undo_(log) {}

    /// Replaces the edit of a cell. Its new style stays, unless there is a newer one.
    void change(const excel::CellPosition& cell, std::optional<CellEdit> edit) {
        const CellEdit* const known = state.edits.find(cell);
        if (known != nullptr && edit && !edit->style) edit->style = known->style;
        record(
            [this, cell](std::optional<CellEdit> former) { state.edits.exchange(cell, std::move(former)); },
            state.edits.exchange(cell, std::move(edit)));
    }

    void changeHeight(int row, double points) {
        record([this, row](std::optional<double> former) { state.edits.exchangeHeight(row, former); },
               state.edits.exchangeHeight(row, points));
    }

    void changeAttribute(int row, const std::string& name, const std::optional<std::string>& value) {
        const auto edits = state.edits.rows().find(row);
        AttributeEdits attributes =
            edits == state.edits.rows().end() ? AttributeEdits() : edits->second.attributes;
        attributes[name] = value;
        record([this, row](AttributeEdits former) { state.edits.exchangeAttributes(row, std::move(former)); },
               state.edits.exchangeAttributes(row, std::move(attributes)));
    }

    void changeSection(const std::string& name, std::string xml) {
        record([this, name](
                   std::optional<std::string> former) { state.sections.exchange(name, std::move(former)); },
               state.sections.exchange(name, std::move(xml)));
    }

    void declare(const std::string& prefix, const std::string& uri) {
        state.root.declare(prefix, uri);
        record([this](const std::string& declared) { state.root.undoDeclaration(declared); }, prefix);
    }

    /// Replaces the content of a cell. A new cell takes the format of its row or its column.
    void replaceContent(const excel::CellPosition& cell, CellEdit edit) {
        if (state.cells.stored(cell).empty()) edit.newStyle = styleOfNewCell(state, cell);
        promoteSuccessor(cell);
        change(cell, std::move(edit));
    }

    /// Makes another cell the master of a shared formula before its master is overwritten.
    void promoteSuccessor(const excel::CellPosition& master) {
        const std::optional<SharedFormulaPromotion> plan = planPromotion(state, master);
        if (!plan) return;
        for (const SharedFormulaPromotion::Successor& successor : plan->successors)
            change(successor.cell, CellEdit{CellEdit::Kind::Formula, successor.formula});
        const int group = plan->group;
        const std::optional<excel::CellPosition> successor =
            plan->hasNewMaster ? std::optional(plan->successors.back().cell) : std::nullopt;
        FormulaGroups& formulas = state.index.formulaGroups;
        formulas.remove(group, master);
        if (successor) formulas.add(group, *successor);
        record(
            [this, group, successor](const excel::CellPosition& former) {
                if (successor) state.index.formulaGroups.remove(group, *successor);
                state.index.formulaGroups.add(group, former);
            },
            master);
    }

    SheetState state;
    std::string partName;
    int changes = 0;

  private:
    /// Counts a change that was just made and, while a step is recorded, records how to restore the former
    /// state.
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
    if (cell.arrayArea || replacesContent(state, position)) return cell;
    const std::optional<excel::CellArea> array = state.index.arrays.find(position);
    // An array formula ends when its first cell is overwritten.
    if (array && !replacesContent(state, array->first)) cell.arrayArea = array;
    return cell;
}

void SheetPart::setText(const excel::CellPosition& position, const std::string& text) {
    data_->replaceContent(position, {CellEdit::Kind::Text, text});
}

void SheetPart::setContent(const excel::CellPosition& position, const CellContent& content) {
    CellEdit edit{CellEdit::Kind::Content, content.xml};
    edit.type = content.type;
    data_->replaceContent(position, std::move(edit));
}

void SheetPart::setResult(const excel::CellPosition& position, const CellContent& result) {
    const std::string xml = data_->state.cells.current(position);
    const CellXml parts = splitCell(xml, data_->state.index.prefix);
    if (parts.formula.empty() || parts.value.empty()) return;
    const CellEdit* const former = data_->state.edits.find(position);
    CellEdit edit = former == nullptr ? CellEdit() : *former;
    // An edit that gave the cell its formula, such as that of a shared formula's new master, has to stay.
    const bool hasNewFormula = replacesContent(data_->state, position);
    edit.kind = hasNewFormula ? CellEdit::Kind::Content : CellEdit::Kind::Result;
    edit.content = (hasNewFormula ? std::string(parts.formula) : "") + result.xml;
    edit.type = result.type;
    data_->change(position, std::move(edit));
}

int SheetPart::styleAt(const excel::CellPosition& position) const {
    const std::string xml = data_->state.cells.current(position);
    return xml.empty() ? styleOfNewCell(data_->state, position)
                       : readCell(xml, data_->state.index.prefix).style;
}

std::optional<int> SheetPart::rowStyle(int row) const {
    return styleOfRow(data_->state, row);
}

void SheetPart::setStyle(const excel::CellPosition& position, int style) {
    const CellEdit* const former = data_->state.edits.find(position);
    CellEdit edit = former == nullptr ? CellEdit{CellEdit::Kind::None} : *former;
    edit.style = style;
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

void SheetPart::setRowAttribute(int row, const std::string& name, const std::optional<std::string>& value) {
    data_->changeAttribute(row, name, value);
}

bool SheetPart::isDirty() const {
    return data_->changes != 0;
}

std::string SheetPart::toXml() const {
    return writeSheet(data_->state);
}

}  // namespace mergeloom::embedded
