#include "contract/ContractOffices.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/libreoffice/excel/CalcOffice.h"

namespace mergeloom {

excel::ApplicationPtr startContractExcel(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeExcelApplication(files);
    return libreoffice::makeExcelApplication(sharedOffice(files), files);
}

// In this program the factory creates Calc instead of Excel, so the tests of the embedded office also test
// Calc.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files, const std::string&) {
    return embedded::makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind, FileStore& files, const std::string&) {
    return libreoffice::makeExcelApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
