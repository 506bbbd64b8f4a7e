#include "office/factory/OfficeFactory.h"

#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/libreoffice/excel/CalcOffice.h"

namespace mergeloom {

// In this program the factory creates Calc instead of Excel, so that the same tests run over Calc as over our
// own engine.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files) {
    return embedded::makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind, FileStore& files) {
    return libreoffice::makeExcelApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
