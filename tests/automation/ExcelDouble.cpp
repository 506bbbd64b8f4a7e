#include "automation/ExcelDouble.h"

#include "automation/ExcelObjects.h"
#include "automation/Faults.h"
#include "automation/Members.h"
#include "base/Paths.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"

#include <utility>

namespace mergeloom::automation {

namespace {

DispatchPtr excelWorkbook(const excel::WorkbookPtr& workbook) {
    const auto path = [workbook] {
        const std::string full = workbook->FullName();
        return full == workbook->Name() ? std::string() : parentFolder(full) + "/";
    };
    const auto close = [workbook](const Given& given) {
        const bool saves = given[0].isEmpty() || given[0].truth();
        workbook->Close(saves ? excel::SaveChanges::Yes : excel::SaveChanges::No);
    };
    return makeObject({
        procedure("Close", "SaveChanges?, Filename?, RouteWorkbook?", close),
        property("FullName", [workbook] { return workbook->FullName(); }),
        property("Name", [workbook] { return workbook->Name(); }),
        property("Names", [workbook] { return excelNames(workbook->Names()); }),
        property("Path", path),
        property("ReadOnly", [] { return faults().isReadOnly(); }),
        action("Save", [workbook] { workbook->Save(); }),
        procedure(
            "SaveAs",
            "Filename?, FileFormat?, Password?, WriteResPassword?, ReadOnlyRecommended?, CreateBackup?, "
            "AccessMode?, ConflictResolution?, AddToMru?, TextCodepage?, TextVisualLayout?, Local?",
            [workbook](const Given& given) {
                workbook->SaveAs(given[0].text(), excel::XlFileFormat{given[1].integer()});
            }),
        property(
            "Saved", [workbook] { return workbook->Saved(); },
            [workbook](const Value& saved) { workbook->SetSaved(saved.truth()); }),
        property("Worksheets", [workbook] { return excelSheets(workbook->Worksheets()); }),
    });
}

/// Returns the file of a template, or the kind of sheet for a new workbook.
excel::WorkbookPtr added(excel::Workbooks& workbooks, const Value& given) {
    return workbooks.Add(given.isText() ? given.text() : "");
}

DispatchPtr excelWorkbooks(const excel::ApplicationPtr& office) {
    const excel::WorkbooksPtr workbooks = office->Workbooks();
    return makeObject({
        method("Add", "Template?",
               [workbooks](const Given& given) { return excelWorkbook(added(*workbooks, given[0])); }),
        countOf(workbooks),
        method(
            "Item", "Index",
            [workbooks](const Given& given) { return excelWorkbook(workbooks->Item(given[0].integer())); }),
        method("Open",
               "Filename, UpdateLinks?, ReadOnly?, Format?, Password?, WriteResPassword?, "
               "IgnoreReadOnlyRecommended?, Origin?, Delimiter?, Editable?, Notify?, Converter?, AddToMru?, "
               "Local?, CorruptLoad?",
               [workbooks](const Given& given) { return excelWorkbook(workbooks->Open(given[0].text())); }),
    });
}

/// Returns no object (Nothing) without an active cell.
DispatchPtr activeCell(excel::Application& office) {
    if (office.Workbooks()->Count() == 0) return {};
    try {
        return excelRange(office.ActiveCell());
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationDefined) throw;
        return {};
    }
}

}  // namespace

DispatchPtr makeExcelDouble(const excel::ApplicationPtr& office, Members furtherMembers,
                            std::function<void()> quit) {
    Members members{
        property("ActiveCell", [office] { return activeCell(*office); }),
        option("AutomationSecurity", 1),
        option("DisplayAlerts", true),
        option("EnableEvents", true),
        property("Name", [office] { return office->Name(); }),
        action("Quit",
               [office, quit = std::move(quit)] {
                   office->Quit();
                   quit();
               }),
        property("Selection", [office] { return excelSelection(office); }),
        option("UserControl", false),
        property("Version", [office] { return office->Version(); }),
        option("Visible", false),
        property("Workbooks", [office] { return excelWorkbooks(office); }),
    };
    members.insert(members.end(), furtherMembers.begin(), furtherMembers.end());
    return makeObject(std::move(members));
}

}  // namespace mergeloom::automation
