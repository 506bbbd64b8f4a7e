#include "automation/ExcelObjects.h"

#include "automation/Members.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/CellAddress.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/SheetReference.h"
#include "office/model/excel/Worksheet.h"

namespace mergeloom::automation {

namespace {

/// Returns the name of a sheet as Excel writes it, with apostrophes if they are required.
std::string writtenName(const std::string& name) {
    const std::size_t mark = name.rfind('!');
    if (mark == std::string::npos) return name;
    return excel::writtenSheetName(name.substr(0, mark)) + name.substr(mark);
}

/// Returns the name of an argument without the apostrophes that Excel requires.
std::string askedName(const std::string& name) {
    const std::size_t mark = name.rfind('!');
    if (mark == std::string::npos) return name;
    const auto reference = excel::parseReference(name.substr(0, mark) + "!$A$1");
    return (reference ? reference->sheetName : "") + name.substr(mark);
}

DispatchPtr excelName(const excel::DefinedNamePtr& name) {
    return makeObject({
        action("Delete", [name] { name->Delete(); }),
        property("Name", [name] { return writtenName(name->Name()); }),
        property(
            "RefersToLocal", [name] { return name->RefersToLocal(); },
            [name](const Value& formula) { name->SetRefersToLocal(formula.text()); }),
        property("RefersToRange", [name] { return excelRange(name->RefersToRange()); }),
        property("Visible", [name] { return name->Visible(); }),
    });
}

excel::DefinedNamePtr findName(excel::Names& names, const Value& index) {
    return index.isText() ? names.Item(askedName(index.text())) : names.Item(index.integer());
}

/// Returns Null if only some of the cells are merged, as Excel does.
Value mergedOf(excel::Range& range) {
    if (!range.MergeCells()) return false;
    const excel::RangePtr first = range.Cells(1, 1)->MergeArea();
    const bool isWhole = first->Rows()->Count() >= range.Rows()->Count() &&
                         first->Columns()->Count() >= range.Columns()->Count();
    return isWhole ? Value(true) : Value(com::Mixed());
}

DispatchPtr excelColumns(const excel::RangePtr& range) {
    return makeObject({
        action("AutoFit", [range] { range->Columns()->AutoFit(); }),
        property("Count", [range] { return range->Columns()->Count(); }),
    });
}

Member place(std::string name, const std::function<Points()>& get) {
    return property(std::move(name), [get] { return get().value; });
}

DispatchPtr excelSheet(const excel::WorksheetPtr& sheet) {
    const auto cells = [sheet](const Given& given) {
        const auto area = excel::parseArea(given[0].text());
        if (!area || !given[1].isEmpty())
            throw AutomationError(kApplicationDefined, "Method 'Range' of object '_Worksheet' failed");
        return excelRange(
            sheet->Cells(area->first.row, area->first.column)->Resize(area->rows(), area->columns()));
    };
    return makeObject({
        action("Activate", [sheet] { sheet->Activate(); }),
        // The object model has no collection of tables.
        property("ListObjects",
                 [] { return makeObject({}, nullptr, [] { return std::vector<DispatchPtr>(); }); }),
        property("Name", [sheet] { return sheet->Name(); }),
        // A protected sheet refuses the insertion before it changes anything.
        property("ProtectDrawingObjects",
                 [sheet] {
                     try {
                         sheet->Pictures()->Insert("");
                     } catch (const AutomationError& error) {
                         return error.number() == kApplicationDefined;
                     }
                     return false;
                 }),
        method("Range", "Cell1, Cell2?", cells),
        property("Shapes", [sheet] { return excelShapes(sheet); }),
        property("UsedRange", [sheet] { return excelRange(sheet->UsedRange()); }),
    });
}

}  // namespace

std::string writtenText(const Value& value) {
    const std::string text = value.text();
    if (text.empty()) return text;
    if (text.front() == '\'') return text.substr(1);
    throw AutomationError(kApplicationDefined, "The double writes only texts.");
}

DispatchPtr excelNames(const excel::NamesPtr& names) {
    return makeObject(
        {
            method("Add",
                   "Name?, RefersTo?, Visible?, MacroType?, ShortcutKey?, Category?, NameLocal?, "
                   "RefersToLocal?, "
                   "CategoryLocal?, RefersToR1C1?, RefersToR1C1Local?",
                   [names](const Given& given) {
                       return excelName(names->Add(given[0].text(), given[7].text()));
                   }),
            countOf(names),
            method("Item", "Index?, IndexLocal?, RefersTo?",
                   [names](const Given& given) { return excelName(findName(*names, given[0])); }),
        },
        nullptr, itemsOf(names, excelName));
}

DispatchPtr excelRange(const excel::RangePtr& range) {
    return makeObject(
        {
            action("Activate", [range] { range->Activate(); }),
            method("Address", "RowAbsolute?, ColumnAbsolute?, ReferenceStyle?, External?, RelativeTo?",
                   [range](const Given&) { return range->AddressLocal(); }),
            property("Columns", [range] { return excelColumns(range); }),
            property(
                "ColumnWidth", [range] { return range->ColumnWidth().value; },
                [range](const Value& width) { range->SetColumnWidth({width.real()}); }),
            place("Height", [range] { return range->Height(); }),
            place("Left", [range] { return range->Left(); }),
            property("MergeArea", [range] { return excelRange(range->MergeArea()); }),
            property("MergeCells", [range] { return mergedOf(*range); }),
            property(
                "RowHeight", [range] { return range->RowHeight().value; },
                [range](const Value& height) { range->SetRowHeight({height.real()}); }),
            action("Select", [range] { range->Select(); }),
            property("Text", [range] { return range->Value(); }),
            place("Top", [range] { return range->Top(); }),
            property(
                "Value2", [range] { return range->Value(); },
                [range](const Value& value) { range->SetValue(writtenText(value)); }),
            place("Width", [range] { return range->Width(); }),
            property("Worksheet", [range] { return excelSheet(range->Worksheet()); }),
        },
        range);
}

DispatchPtr excelSelection(const excel::ApplicationPtr& office) {
    const excel::SelectionPtr selection = office->Selection();
    if (selection->TypeName() != "Range") return makeObject({});
    // The value is written into all areas at once, but the model has only the address of the active cell.
    return makeObject({
        method("Address", "RowAbsolute?, ColumnAbsolute?, ReferenceStyle?, External?, RelativeTo?",
               [office](const Given&) { return office->ActiveCell()->AddressLocal(); }),
        property("Value2", nullptr,
                 [selection](const Value& value) { selection->SetValue2(writtenText(value)); }),
    });
}

DispatchPtr excelSheets(const excel::WorksheetsPtr& sheets) {
    const auto item = [sheets](const Given& given) {
        return excelSheet(given[0].isText() ? sheets->Item(given[0].text())
                                            : sheets->Item(given[0].integer()));
    };
    return makeObject({countOf(sheets), method("Item", "Index", item)}, nullptr,
                      itemsOf(sheets, [](const excel::WorksheetPtr& sheet) { return excelSheet(sheet); }));
}

}  // namespace mergeloom::automation
