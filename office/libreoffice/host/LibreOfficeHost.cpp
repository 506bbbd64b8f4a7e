#include "office/libreoffice/host/LibreOfficeHost.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/word/WriterOffice.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Workbooks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Documents.h"

#include <utility>

namespace mergeloom::libreoffice {

LibreOfficeHost::LibreOfficeHost(FileStore& files, const HostWindow& window, HostedPart,
                                 HostListener& listener)
    : window_(window),
      listener_(listener),
      session_(std::make_shared<LibreOfficeSession>(files, TimeBounds{}, OfficeMode::Shown)),
      word_(makeWordApplication(session_, files)),
      excel_(makeExcelApplication(session_, files)) {
    session_->files().showIn([this] { return makeFrame(); });
}

LibreOfficeHost::~LibreOfficeHost() = default;

Reference<css::frame::XFrame> LibreOfficeHost::makeFrame() {
    return frames_.emplace_back(session_->connection(), window_).uno();
}

void LibreOfficeHost::CreateNew(const std::string& programIdentifier) {
    if (programIdentifier == "Excel.Template") return show(excel_->Workbooks()->Add(""));
    if (programIdentifier.starts_with("Word.Template")) return show(word_->Documents()->Add(""));
    throw AutomationError(kCommandFailed,
                          "LibreOffice knows no documents of the kind '" + programIdentifier + "'.");
}

void LibreOfficeHost::Open(const std::string& path) {
    show(word_->Documents()->Open(path));
}

void LibreOfficeHost::show(HostedDocument document) {
    document_ = std::move(document);
}

void LibreOfficeHost::resize(int width, int height) {
    window_.width = width;
    window_.height = height;
    call([&] {
        for (const HostFrame& frame : frames_)
            frame.resize(width, height);
    });
}

void LibreOfficeHost::beginEditing() {}
void LibreOfficeHost::endEditing() {}
bool LibreOfficeHost::placeCaret(HostPoint) {
    return false;
}
void LibreOfficeHost::setEnabled(bool) {}
void LibreOfficeHost::focus() {}
bool LibreOfficeHost::showsBookmarks() {
    return false;
}
void LibreOfficeHost::setShowsBookmarks(bool) {}
void LibreOfficeHost::setZoom(int) {}
void LibreOfficeHost::setCommandBarVisible(const std::string&, bool) {}
bool LibreOfficeHost::allowsDragAndDrop() {
    return true;
}
std::string LibreOfficeHost::build() {
    return {};
}

}  // namespace mergeloom::libreoffice
