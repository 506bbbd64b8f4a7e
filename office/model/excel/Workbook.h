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
    /// The names of the workbook and those of its sheets, hidden ones included.
    virtual NamesPtr Names() = 0;
    /// The sheets with cells, in the order of their tabs; chart sheets are left out.
    virtual WorksheetsPtr Worksheets() = 0;

    /// Errors as for Save.
    virtual void SaveAs(const std::string& fileName, XlFileFormat format) = 0;
    virtual void Close(SaveChanges saveChanges) = 0;
};

}  // namespace mergeloom::excel
