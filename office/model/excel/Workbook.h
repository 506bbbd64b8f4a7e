#pragma once

#include "office/model/OfficeDocument.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// One open workbook.
class Workbook : public model::OfficeDocument {
  public:
    virtual ApplicationPtr Application() = 0;
    /// Returns the names of the workbook and those of its sheets, including hidden ones.
    virtual NamesPtr Names() = 0;
    /// Returns the sheets with cells in the order of their tabs, without chart sheets.
    virtual WorksheetsPtr Worksheets() = 0;

    /// Errors as for Save.
    virtual void SaveAs(const std::string& fileName, XlFileFormat format) = 0;
    virtual void Close(SaveChanges saveChanges) = 0;
};

class Workbooks : public Counted {
  public:
    /// Makes a workbook from a template, or an empty one with one sheet when the path is empty, and makes it
    /// active. Raises kFileCouldNotBeRead with a sentence that names the file and what is wrong with it.
    virtual WorkbookPtr Add(const std::string& templatePath) = 0;
    /// Opens a workbook to change it in place; errors as for Add.
    virtual WorkbookPtr Open(const std::string& fileName) = 0;
    virtual WorkbookPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kSubscriptOutOfRange, "There is no such workbook.");
    }
};

}  // namespace mergeloom::excel
