#include "office/factory/OfficeFactory.h"

#include "libreoffice/word/SharedOffice.h"
#include "office/libreoffice/remote/WriterOffice.h"

namespace mergeloom {

// In this program the factory creates Writer instead of Word, so the tests of the embedded office also test
// Writer.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files, const std::string&) {
    return libreoffice::makeWordApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
