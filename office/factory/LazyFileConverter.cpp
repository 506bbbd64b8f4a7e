#include "office/factory/LazyFileConverter.h"

#include "base/AutomationError.h"
#include "office/factory/OfficeModuleLoader.h"

namespace mergeloom {

template <typename Format>
std::string LazyFileConverter::refusalOf(Format format) try {
    return converter().refusal(format);
} catch (const AutomationError&) {
    // The loader's own sentence speaks to those who chose LibreOffice for the whole work.
    return "The program's module for LibreOffice could not be loaded. Install LibreOffice (on Debian: "
           "libreoffice-writer and libreoffice-calc) and the module.";
}

template std::string LazyFileConverter::refusalOf(word::WdSaveFormat);
template std::string LazyFileConverter::refusalOf(excel::XlFileFormat);

FileConverter& LazyFileConverter::converter() {
    if (!converter_) converter_ = libreOfficeModule().makeFileConverter(files_);
    return *converter_;
}

}  // namespace mergeloom
