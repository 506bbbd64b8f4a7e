#include "office/libreoffice/session/LibreOfficeConverter.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/RequiredFilter.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

template <typename Format>
std::string refusalOf(Format format) try {
    if (!filterFor(format)) return "LibreOffice does not write this format.";
    findOfficeProgram();
    return {};
} catch (const AutomationError& error) {
    return error.description();
}

/// A document that is closed whatever becomes of the work with it.
class OpenDocument {
  public:
    OpenDocument(LibreOfficeFiles& files, const std::string& path, OfficePart part)
        : files_(files), document_(files.open(path, part)) {}
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    ~OpenDocument() { files_.close(document_); }

    [[nodiscard]] const DocumentReference& get() const { return document_; }

  private:
    LibreOfficeFiles& files_;
    DocumentReference document_;
};

}  // namespace

LibreOfficeConverter::LibreOfficeConverter(SessionSource source) : source_(std::move(source)) {}

LibreOfficeConverter::LibreOfficeConverter(FileStore& files, TimeBounds bounds)
    : LibreOfficeConverter([&files, bounds] { return std::make_shared<LibreOfficeSession>(files, bounds); }) {
}

LibreOfficeConverter::~LibreOfficeConverter() = default;

std::string LibreOfficeConverter::refusal(word::WdSaveFormat format) {
    return refusalOf(format);
}

std::string LibreOfficeConverter::refusal(excel::XlFileFormat format) {
    return refusalOf(format);
}

void LibreOfficeConverter::convert(const std::string& from, const std::string& to,
                                   word::WdSaveFormat format) {
    convertAs(OfficePart::Word, from, to, format);
}

void LibreOfficeConverter::convert(const std::string& from, const std::string& to,
                                   excel::XlFileFormat format) {
    convertAs(OfficePart::Excel, from, to, format);
}

template <typename Format>
void LibreOfficeConverter::convertAs(OfficePart part, const std::string& from, const std::string& to,
                                     Format format) {
    requiredFilter(format, to);  // a refusal needs no office
    LibreOfficeFiles& office = session().files();
    const OpenDocument document(office, from, part);
    office.save(document.get(), to, format);
}

LibreOfficeSession& LibreOfficeConverter::session() {
    const bool runs = session_ && session_->process().isRunning();
    if (!runs) {
        session_.reset();
        session_ = source_();
    }
    return *session_;
}

}  // namespace mergeloom::libreoffice
