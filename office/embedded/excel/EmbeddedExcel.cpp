#include "office/embedded/excel/EmbeddedExcel.h"

#include "office/embedded/excel/EmbeddedExcelApplication.h"

#include <memory>

namespace mergeloom::embedded {

excel::ApplicationPtr makeExcelApplication(FileStore& files) {
    return std::make_shared<EmbeddedExcelApplication>(files);
}

}  // namespace mergeloom::embedded
