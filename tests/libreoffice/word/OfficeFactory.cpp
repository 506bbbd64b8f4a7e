#include "office/factory/OfficeFactory.h"

#include "libreoffice/word/SharedOffice.h"
#include "office/libreoffice/remote/WriterOffice.h"

namespace mergeloom {

// In this program the factory gives Writer to whoever asks for Word, so that what is tested over our own
// engine is tested over Writer unchanged.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files, const std::string&) {
    return libreoffice::makeWordApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
