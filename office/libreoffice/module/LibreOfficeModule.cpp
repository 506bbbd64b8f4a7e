#include "office/libreoffice/entry/OfficeModule.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/host/LibreOfficeHost.h"
#include "office/libreoffice/readback/ReadBack.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/libreoffice/session/LibreOfficeConverter.h"

namespace mergeloom::libreoffice {

namespace {

class LibreOfficeModule final : public OfficeModule {
  public:
    word::ApplicationPtr makeWordApplication(FileStore& files) override {
        return libreoffice::makeWordApplication(session(files), files);
    }
    excel::ApplicationPtr makeExcelApplication(FileStore& files) override {
        return libreoffice::makeExcelApplication(session(files), files);
    }
    std::unique_ptr<FileConverter> makeFileConverter(FileStore& files) override {
        return std::make_unique<LibreOfficeConverter>([this, &files] { return session(files); },
                                                      checkWritten);
    }
    std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window,
                                                   DocumentKind kind, HostListener& listener,
                                                   const model::PackageGraft& graft) override {
        return std::make_unique<LibreOfficeHost>(files, window, kind, listener,
                                                 std::make_shared<GraftingOffice>(graft, files));
    }

  private:
    /// The office that all parts share as long as one of them holds it, or a new one where that has died or
    /// serves other files.
    std::shared_ptr<LibreOfficeSession> session(FileStore& files) {
        std::shared_ptr<LibreOfficeSession> shared = session_.lock();
        if (shared && files_ == &files && shared->process().isRunning()) return shared;
        shared = std::make_shared<LibreOfficeSession>(files);
        session_ = shared;
        files_ = &files;
        return shared;
    }

    std::weak_ptr<LibreOfficeSession> session_;
    FileStore* files_ = nullptr;  ///< of the shared office; only compared
};

}  // namespace

}  // namespace mergeloom::libreoffice

extern "C" mergeloom::OfficeModule* mergeloom_office_module(int edition) {
    static mergeloom::libreoffice::LibreOfficeModule module;
    return edition == mergeloom::kOfficeModuleEdition ? &module : nullptr;
}
