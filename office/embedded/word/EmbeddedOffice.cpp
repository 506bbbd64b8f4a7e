#include "office/embedded/word/EmbeddedOffice.h"

#include "office/embedded/word/EmbeddedApplication.h"

#include <memory>

namespace mergeloom::embedded {

word::ApplicationPtr makeWordApplication(FileStore& files) {
    return std::make_shared<EmbeddedApplication>(files);
}

}  // namespace mergeloom::embedded
