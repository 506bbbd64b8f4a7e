#include "office/libreoffice/entry/OfficeModule.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/host/LibreOfficeHost.h"
#include "office/libreoffice/session/LibreOfficeConverter.h"
#include "office/libreoffice/word/WriterOffice.h"

namespace mergeloom::libreoffice {

namespace {

class LibreOfficeModule final : public OfficeModule {
  public:
    word::ApplicationPtr makeWordApplication(FileStore& files) override {
        return libreoffice::makeWordApplication(std::make_shared<LibreOfficeSession>(files), files);
    }
    excel::ApplicationPtr makeExcelApplication(FileStore& files) override {
        return libreoffice::makeExcelApplication(std::make_shared<LibreOfficeSession>(files), files);
    }
    std::unique_ptr<FileConverter> makeFileConverter(FileStore& files) override {
        return std::make_unique<LibreOfficeConverter>(files);
    }
    std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window,
                                                   HostedPart part, HostListener& listener) override {
        return std::make_unique<LibreOfficeHost>(files, window, part, listener);
    }
};

}  // namespace

}  // namespace mergeloom::libreoffice

extern "C" mergeloom::OfficeModule* mergeloom_office_module(int edition) {
    static mergeloom::libreoffice::LibreOfficeModule module;
    return edition == mergeloom::kOfficeModuleEdition ? &module : nullptr;
}
