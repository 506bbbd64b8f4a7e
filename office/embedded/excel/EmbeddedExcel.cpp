#include "office/embedded/excel/EmbeddedExcel.h"

#include "base/AutomationError.h"

namespace mergeloom::embedded {

excel::ApplicationPtr makeExcelApplication(FileStore& /*files*/) {
    throw AutomationError(kNotAvailable, "The workbook engine is not available yet.");
}

}  // namespace mergeloom::embedded
