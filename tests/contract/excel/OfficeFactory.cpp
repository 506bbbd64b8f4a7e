#include "office/factory/OfficeFactory.h"

#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/libreoffice/excel/CalcOffice.h"

namespace mergeloom {

// In this program the factory gives Calc to whoever asks for Excel, so that what is tested over our own
// engine is tested over Calc unchanged.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files) {
    return embedded::makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind, FileStore& files) {
    return libreoffice::makeExcelApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
