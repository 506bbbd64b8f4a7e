#include "office/factory/OfficeFactory.h"

#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "base/Paths.h"
#include "office/embedded/books/EmbeddedBooks.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/letters/EmbeddedLetters.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/factory/InstalledOffice.h"
#include "office/factory/LibreOfficeModule.h"
#include "office/graft/PackageGraft.h"
#include "office/model/FileConverter.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

namespace {

/// A converter that loads the module for LibreOffice at its first use.
class LazyFileConverter final : public FileConverter {
  public:
    explicit LazyFileConverter(FileStore& files) : files_(files) {}

    std::string refusal(word::WdSaveFormat format) override { return refusalOf(format); }
    std::string refusal(excel::XlFileFormat format) override { return refusalOf(format); }
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override {
        converter().convert(from, to, format);
    }
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override {
        converter().convert(from, to, format);
    }

    bool convertRecords(const std::string& from, const std::vector<std::string>& to,
                        word::WdSaveFormat format, const std::function<void()>& written) override {
        return converter().convertRecords(from, to, format, written);
    }

  private:
    template <typename Format>
    std::string refusalOf(Format format) try {
        return converter().refusal(format);
    } catch (const AutomationError&) {
        // The loader's own sentence addresses users who chose LibreOffice for the whole run.
        return libreOfficeIsMissing();
    }

    FileConverter& converter() {
        if (!converter_) converter_ = libreOfficeModule().makeFileConverter(files_);
        return *converter_;
    }

    FileStore& files_;
    std::unique_ptr<FileConverter> converter_;
};

}  // namespace

word::ApplicationPtr makeWordApplication(OfficeKind kind, FileStore& files, const std::string& traceFile) {
    if (kind == OfficeKind::Com) return startInstalledWord(traceFile);
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    return libreOfficeModule().makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind kind, FileStore& files, const std::string& traceFile) {
    if (kind == OfficeKind::Com) return startInstalledExcel(traceFile);
    if (kind == OfficeKind::Embedded) return embedded::makeExcelApplication(files);
    return libreOfficeModule().makeExcelApplication(files);
}

std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path) {
    return embedded::openLetterTemplate(files, path);
}

std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path) {
    return embedded::openBookTemplate(files, path);
}

std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path,
                                                            std::string bytes) {
    return embedded::openLetterTemplate(files, path, std::move(bytes));
}

std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path,
                                                          std::string bytes) {
    return embedded::openBookTemplate(files, path, std::move(bytes));
}

std::unique_ptr<FileConverter> makeFileConverter(FileStore& files) {
    return std::make_unique<LazyFileConverter>(files);
}

std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window, DocumentKind kind,
                                               HostListener& listener) {
    static const std::unique_ptr<model::PackageGraft> graft = graft::makePackageGraft();
    return libreOfficeModule().makeDocumentHost(files, window, kind, listener, *graft);
}

}  // namespace mergeloom
