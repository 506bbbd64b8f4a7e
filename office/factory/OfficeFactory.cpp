#include "office/factory/OfficeFactory.h"

#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/factory/LazyFileConverter.h"
#include "office/factory/OfficeModuleLoader.h"

namespace mergeloom {

word::ApplicationPtr makeWordApplication(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    return libreOfficeModule().makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeExcelApplication(files);
    return libreOfficeModule().makeExcelApplication(files);
}

std::unique_ptr<FileConverter> makeFileConverter(FileStore& files) {
    return std::make_unique<LazyFileConverter>(files);
}

std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window, DocumentKind kind,
                                               HostListener& listener) {
    return libreOfficeModule().makeDocumentHost(files, window, kind, listener);
}

}  // namespace mergeloom
