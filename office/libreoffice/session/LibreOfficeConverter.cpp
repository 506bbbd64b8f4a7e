#include "office/libreoffice/session/LibreOfficeConverter.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/libreoffice/session/RecordPages.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

std::string refusalOf(SaveFormat format) try {
    if (!filterFor(format)) return "LibreOffice does not write this format.";
    findOfficeProgram();
    return {};
} catch (const AutomationError& error) {
    return error.description();
}

}  // namespace

LibreOfficeConverter::LibreOfficeConverter(SessionSource source, WrittenCheck check)
    : source_(std::move(source)), check_(std::move(check)) {}

LibreOfficeConverter::LibreOfficeConverter(FileStore& files, TimeBounds bounds)
    : LibreOfficeConverter([&files, bounds] { return std::make_shared<LibreOfficeSession>(files, bounds); },
                           {}) {}

LibreOfficeConverter::~LibreOfficeConverter() = default;

std::string LibreOfficeConverter::refusal(word::WdSaveFormat format) {
    return refusalOf(format);
}

std::string LibreOfficeConverter::refusal(excel::XlFileFormat format) {
    return refusalOf(format);
}

void LibreOfficeConverter::convert(const std::string& from, const std::string& to,
                                   word::WdSaveFormat format) {
    convertAs(from, to, format);
}

void LibreOfficeConverter::convert(const std::string& from, const std::string& to,
                                   excel::XlFileFormat format) {
    convertAs(from, to, format);
}

bool LibreOfficeConverter::convertRecords(const std::string& from, const std::vector<std::string>& to,
                                          word::WdSaveFormat format, const std::function<void()>& written) {
    requiredFilter(format, to.front());  // refuses before an office is started
    LibreOfficeFiles& office = session().files();
    const OpenDocument document(office, office.open(from, DocumentKind::Word));
    const std::vector<PageRange> pages =
        session_->connection().call([&] { return pagesOfRecords(document.get(), to.size()); });
    for (std::size_t record = 0; record < pages.size(); ++record) {
        office.exportPages(document.get(), to[record], format, pages[record]);
        written();
    }
    return !pages.empty();
}

void LibreOfficeConverter::convertAs(const std::string& from, const std::string& to, SaveFormat format) {
    requiredFilter(format, to);  // refuses before an office is started
    LibreOfficeFiles& office = session().files();
    const OpenDocument document(office, office.open(from, format.kind));
    office.save(document.get(), to, format, [&](std::string bytes) {
        if (check_) check_(*session_, document.get(), to, format, bytes);
        return bytes;
    });
}

LibreOfficeSession& LibreOfficeConverter::session() {
    if (!session_ || !session_->isAlive()) {
        session_.reset();
        session_ = source_();
    }
    return *session_;
}

}  // namespace mergeloom::libreoffice
