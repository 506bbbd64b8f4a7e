#include "office/factory/LazyFileConverter.h"

#include "base/AutomationError.h"
#include "office/factory/OfficeModuleLoader.h"

namespace mergeloom {

template <typename Format>
bool LazyFileConverter::canWriteFormat(Format format) try {
    return converter().canWrite(format);
} catch (const AutomationError&) {
    return false;
}

template bool LazyFileConverter::canWriteFormat(word::WdSaveFormat);
template bool LazyFileConverter::canWriteFormat(excel::XlFileFormat);

FileConverter& LazyFileConverter::converter() {
    if (!converter_) converter_ = libreOfficeModule().makeFileConverter(files_);
    return *converter_;
}

}  // namespace mergeloom
