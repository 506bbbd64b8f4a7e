#include "office/libreoffice/host/LibreOfficeHost.h"

#include "base/AutomationError.h"

namespace mergeloom::libreoffice {

LibreOfficeHost::LibreOfficeHost(FileStore&, const HostWindow&, HostedPart, HostListener&) {
    throw AutomationError(kNotAvailable, "LibreOffice cannot be shown in a window yet.");
}

LibreOfficeHost::~LibreOfficeHost() = default;
void LibreOfficeHost::CreateNew(const std::string&) {}
void LibreOfficeHost::Open(const std::string&) {}
HostedDocument LibreOfficeHost::ActiveDocument() {
    return {};
}
void LibreOfficeHost::beginEditing() {}
void LibreOfficeHost::endEditing() {}
bool LibreOfficeHost::placeCaret(HostPoint) {
    return false;
}
void LibreOfficeHost::setEnabled(bool) {}
void LibreOfficeHost::resize(int, int) {}
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
