#pragma once

#include "office/embedded/sheet/DefinedNames.h"
#include "office/embedded/sheet/PartState.h"
#include "office/embedded/sheet/SheetList.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The workbook part (ECMA-376 Part 1, 18.2): its sheets, which of them is active, and its defined names.
class WorkbookPart {
  public:
    /// Reads the package's main part. Raises kFileCouldNotBeRead, with a sentence that names the file, for a
    /// package that is no workbook (a Word document, a binary workbook .xlsb), for a workbook without a
    /// visible sheet, for one whose sheets' parts are missing and for one that is digitally signed. Package
    /// and log must outlive the part.
    WorkbookPart(opc::Package& package, UndoLog& undo);
    WorkbookPart(const WorkbookPart&) = delete;
    WorkbookPart& operator=(const WorkbookPart&) = delete;

    [[nodiscard]] const std::string& partName() const { return part_->partName(); }
    [[nodiscard]] const std::vector<SheetEntry>& sheets() const { return sheets_; }
    /// The index of the active sheet; that of the first visible one where the workbook names none or a hidden
    /// one.
    [[nodiscard]] std::size_t activeSheet() const { return activeSheet_; }
    /// Raises kApplicationDefined for a sheet that is hidden or not there.
    void setActiveSheet(std::size_t index);

    /// Has Excel calculate all formulas when it opens the workbook (fullCalcOnLoad, ECMA-376 Part 1, 18.2.2).
    void calculateOnLoad();

    [[nodiscard]] DefinedNames& names() { return *names_; }

    /// Whether the package does not have the part as it stands now.
    [[nodiscard]] bool isDirty() const { return state_.isDirty(); }
    [[nodiscard]] std::string toXml() const { return part_->toXml(); }
    /// Hands the edited part to the package.
    void store();

  private:
    [[nodiscard]] std::size_t readActiveSheet() const;
    [[nodiscard]] bool canBeActive(std::size_t index) const;
    [[nodiscard]] pugi::xml_node view() const;
    pugi::xml_node ensureView();
    pugi::xml_node ensureCalculation();

    opc::Package& package_;
    PartState state_;
    std::unique_ptr<opc::XmlPart> part_;
    std::vector<SheetEntry> sheets_;
    std::size_t activeSheet_ = 0;
    std::optional<DefinedNames> names_;
};

}  // namespace mergeloom::embedded
