#include "office/factory/OfficeFactory.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/word/EmbeddedOffice.h"

namespace mergeloom {

namespace {

[[noreturn]] void refuseLibreOffice() {
    throw AutomationError(kNotAvailable,
                          "The office 'libreoffice' is not available in this version. Choose 'embedded'.");
}

}  // namespace

word::ApplicationPtr makeWordApplication(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    refuseLibreOffice();
}

excel::ApplicationPtr makeExcelApplication(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeExcelApplication(files);
    refuseLibreOffice();
}

}  // namespace mergeloom
