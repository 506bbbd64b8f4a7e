#include "office/factory/OfficeFactory.h"

#include "base/AutomationError.h"
#include "office/embedded/word/EmbeddedOffice.h"

namespace mergeloom {

word::ApplicationPtr makeWordApplication(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    throw AutomationError(kNotAvailable,
                          "The office 'libreoffice' is not available in this version. Choose 'embedded'.");
}

}  // namespace mergeloom
