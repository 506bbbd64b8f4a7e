#include "office/libreoffice/word/WriterOffice.h"

#include "office/libreoffice/word/WriterApplication.h"

#include <utility>

namespace mergeloom::libreoffice {

word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files) {
    return std::make_shared<WriterApplication>(std::move(session), files);
}

}  // namespace mergeloom::libreoffice
