#include "contract/ContractOffices.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/libreoffice/remote/WriterOffice.h"

namespace mergeloom {

word::ApplicationPtr startContractWord(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    return libreoffice::makeWordApplication(sharedOffice(files), files);
}

}  // namespace mergeloom
