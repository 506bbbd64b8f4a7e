#include "office/libreoffice/host/HostFrames.h"

namespace mergeloom::libreoffice {

Reference<css::frame::XFrame> HostFrames::make(const HostWindow& window) {
    return frames_.emplace_back(connection_, windows_, window, commands_).uno();
}

void HostFrames::renewFront(const HostWindow& window) {
    const HostFrame* const former = front();
    if (former == nullptr) return;
    (void)make(window);
    frames_.back().takeDocument(*former);
}

HostFrame* HostFrames::front() {
    std::erase_if(frames_, [](const HostFrame& frame) { return !frame.document().is(); });
    return frames_.empty() ? nullptr : &frames_.back();
}

DocumentReference HostFrames::frontDocument() {
    const HostFrame* const frame = front();
    return frame == nullptr ? DocumentReference() : frame->document();
}

std::vector<DocumentReference> HostFrames::documents() const {
    std::vector<DocumentReference> documents;
    for (const HostFrame& frame : frames_)
        if (const DocumentReference document = frame.document(); document.is()) documents.push_back(document);
    return documents;
}

void HostFrames::resize(int width, int height) {
    for (HostFrame& frame : frames_)
        frame.resize(width, height);
}

void HostFrames::setEnabled(bool enabled) const {
    for (const HostFrame& frame : frames_)
        frame.setEnabled(enabled);
}

}  // namespace mergeloom::libreoffice
