#pragma once

#include "office/embedded/package/Package.h"
#include "office/embedded/parts/XmlPart.h"
#include "office/embedded/sheet/DefinedNames.h"
#include "office/embedded/sheet/UndoLog.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

enum class SheetKind { Worksheet, ChartSheet, Other };

/// A sheet as the workbook lists it (ECMA-376 Part 1, 18.2.19).
struct SheetEntry {
    std::string name;
    std::string partName;
    int sheetId = 0;  ///< by which the calculation chain knows it
    SheetKind kind = SheetKind::Worksheet;
    bool hidden = false;
};

/// The workbook part (ECMA-376 Part 1, 18.2): its sheets, which of them is active, and its defined names.
class WorkbookPart {
  public:
    /// Reads the package's main part. Raises kFileCouldNotBeRead, with a sentence that names the file, for a
    /// package that is no workbook (a Word document, a binary workbook .xlsb), for a workbook without a
    /// visible sheet and for one whose sheets' parts are missing. Package and log must outlive the part.
    WorkbookPart(Package& package, UndoLog& undo);

    [[nodiscard]] const std::string& partName() const;
    [[nodiscard]] const std::vector<SheetEntry>& sheets() const;
    /// The index of the active sheet; that of the first visible one where the workbook names none or a hidden
    /// one.
    [[nodiscard]] std::size_t activeSheet() const;
    void setActiveSheet(std::size_t index);

    [[nodiscard]] DefinedNames& names();

    [[nodiscard]] bool isDirty() const;
    [[nodiscard]] std::string toXml() const;

  private:
    std::unique_ptr<XmlPart> part_;
};

}  // namespace mergeloom::embedded
