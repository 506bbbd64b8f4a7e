#pragma once

#include "office/embedded/sheet/DefinedNames.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::embedded {

enum class SheetKind { Worksheet, ChartSheet, Other };

/// An entry of the workbook's list of sheets (ECMA-376 Part 1, 18.2.19).
struct SheetEntry {
    std::string name;
    std::string partName;
    int sheetId = 0;  ///< identifies the sheet in the calculation chain
    SheetKind kind = SheetKind::Worksheet;
    bool hidden = false;
};

/// Reads the list of sheets from the root of a workbook's part. Raises kFileCouldNotBeRead, with a sentence
/// that names the file, for a workbook without a visible sheet and for a sheet whose part is missing or
/// belongs to another sheet.
std::vector<SheetEntry> readSheets(pugi::xml_node workbook, const std::string& partName,
                                   opc::Package& package);

/// The workbook part (ECMA-376 Part 1, 18.2): its sheets, which of them is active, and its defined names.
class WorkbookPart {
  public:
    /// Reads the package's main part. Raises kFileCouldNotBeRead, with a sentence that names the file, for a
    /// package that is not a workbook (a Word document, a binary workbook .xlsb), for a workbook without a
    /// visible sheet, for one whose sheets' parts are missing and for one that is digitally signed. Package
    /// and log must outlive the part.
    WorkbookPart(opc::Package& package, UndoLog& undo);

    [[nodiscard]] const std::string& partName() const { return part_->partName(); }
    [[nodiscard]] const std::vector<SheetEntry>& sheets() const { return sheets_; }
    /// Returns the index of the active sheet; that of the first visible one if the workbook names none or a
    /// hidden one.
    [[nodiscard]] std::size_t activeSheet() const { return activeSheet_; }
    /// Raises kApplicationDefined for a sheet that is hidden or missing.
    void setActiveSheet(std::size_t index);

    /// Makes Excel calculate all formulas when it opens the workbook (fullCalcOnLoad, ECMA-376 Part 1,
    /// 18.2.2).
    void calculateOnLoad();

    [[nodiscard]] DefinedNames& names() { return *names_; }

    /// Returns true if the part differs from the one in the package.
    [[nodiscard]] bool isDirty() const { return state_.isDirty(); }
    [[nodiscard]] std::string toXml() const { return part_->toXml(); }
    /// Writes the edited part into the package.
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
