#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/host/HostFrame.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/DocumentHost.h"
#include "office/model/excel/Application.h"
#include "office/model/word/Application.h"

#include <memory>
#include <vector>

namespace mergeloom::libreoffice {

/// LibreOffice inside a window of ours, over X11.
class LibreOfficeHost final : public DocumentHost {
  public:
    /// Starts an office of its own. Raises kNotAvailable with a sentence that says what hinders it.
    LibreOfficeHost(FileStore& files, const HostWindow& window, HostedPart part, HostListener& listener);
    ~LibreOfficeHost() override;

    void CreateNew(const std::string& programIdentifier) override;
    void Open(const std::string& path) override;
    HostedDocument ActiveDocument() override { return document_; }
    void beginEditing() override;
    void endEditing() override;
    bool placeCaret(HostPoint point) override;
    void setEnabled(bool enabled) override;
    void resize(int width, int height) override;
    void focus() override;
    bool showsBookmarks() override;
    void setShowsBookmarks(bool shown) override;
    void setZoom(int percent) override;
    void setCommandBarVisible(const std::string& name, bool visible) override;
    bool allowsDragAndDrop() override;
    std::string build() override;

  private:
    [[nodiscard]] Reference<css::frame::XFrame> makeFrame();
    void show(HostedDocument document);
    template <typename Call>
    auto call(const Call& body) -> decltype(body()) {
        return session_->connection().call(body);
    }

    HostWindow window_;
    HostListener& listener_;
    std::shared_ptr<LibreOfficeSession> session_;
    word::ApplicationPtr word_;
    excel::ApplicationPtr excel_;
    std::vector<HostFrame> frames_;  ///< the last one is in front
    HostedDocument document_;
};

}  // namespace mergeloom::libreoffice
