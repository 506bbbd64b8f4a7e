#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/host/CellMarks.h"
#include "office/libreoffice/host/ChangeWatch.h"
#include "office/libreoffice/host/ClickFocus.h"
#include "office/libreoffice/host/DropPreview.h"
#include "office/libreoffice/host/HostFrames.h"
#include "office/libreoffice/host/HostPreview.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/PollingThread.h"
#include "office/model/DocumentHost.h"
#include "office/model/excel/Application.h"
#include "office/model/word/Application.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// LibreOffice inside a window of ours, over X11. Each document has a frame of its own that fills the window;
/// the newest one covers the others.
class LibreOfficeHost final : public DocumentHost {
  public:
    /// Starts an office of its own. Raises kNotAvailable with a sentence that says why it cannot be started.
    /// With a grafting office, saves keep the files that were opened.
    LibreOfficeHost(FileStore& files, const HostWindow& window, DocumentKind kind, HostListener& listener,
                    const GraftingOfficePtr& grafting = {});
    ~LibreOfficeHost() override;

    void CreateNew(const std::string& programIdentifier) override;
    void Open(const std::string& path, FileAccess access, const std::string& password) override;
    HostedDocument ActiveDocument() override;
    bool hasOpenDialog() override;
    bool isReadOnly() override;
    bool losesPassword(int format) override;
    void ExportCopy(const std::string& path, int format) override;
    std::string exportedPackage() override;
    void showPreview(DocumentKind kind, const std::string& bytes) override;
    void endPreview() override;
    bool hasChangesToKeep() override;
    void keepCopy(const std::string& path) override;
    void endInput() override;
    std::vector<std::string> placeNames() override;
    std::vector<std::string> placesAt(HostPoint point) override;
    void showPlace(const std::string& name) override;
    void renamePlace(const std::string& name, const std::string& newName) override;
    void removePlace(const std::string& name) override;
    void beginEditing() override;
    void endEditing() override;
    void showDropPlace(HostPoint point) override;
    void hideDropPlace() override { preview_.hide(); }
    bool placeCaret(HostPoint point) override;
    void resize(int width, int height) override;
    void focus(const std::function<bool()>& isWanted) override;
    void focusAgain(const std::function<bool()>& isWanted) override;
    void beginOpening() override;
    void focusOpened() override;
    bool showsBookmarks() override;
    bool setLook(const HostLook& look) override;
    void setShowsBookmarks(bool shown) override;
    void updateMarks() override;
    void setZoom(int percent) override;
    void setCommandBarVisible(const std::string& name, bool visible) override;
    /// LibreOffice has no option for it.
    bool allowsDragAndDrop() override { return true; }
    std::string build() override;

  private:
    template <typename Call>
    auto call(const Call& body) -> decltype(body()) {
        checkIsAlive();
        return session_->connection().call(body);
    }
    /// Calls the body with the frame that the user sees; does nothing without a document.
    template <typename Body>
    void withFront(const Body& body) {
        call([&] {
            if (HostFrame* const frame = frames_.front()) body(*frame);
        });
    }
    /// Raises kNotAvailable when the office has ended; a closed frame shows only the end of its document.
    void checkIsAlive() const;
    void closeAllBut(const HostedDocument& kept);
    void closeDocuments();
    [[nodiscard]] xcb_window_t innerWindow() const {
        return windows_.innerWindow(static_cast<xcb_window_t>(window_.id));
    }
    /// Puts the cell cursor there; does nothing for a target in a text.
    void enterCells(const HostFrame& frame, const CaretTarget& target);
    void clickBlank(HostPoint point);
    /// Makes the office handle the events that it was sent. Must be called within call().
    void handleEvents();
    void giveKeyboard(const std::function<bool()>& isWanted);
    void setEnabled(const HostedDocument& hosted, bool enabled);

    HostWindow window_;
    DocumentKind kind_;
    HostListener& listener_;
    WindowSystem windows_;
    DropPreview preview_{windows_};
    std::optional<ClickFocus> focus_;
    std::uint32_t clicksBeforeOpening_ = 0;  ///< beside the document
    std::shared_ptr<LibreOfficeSession> session_;
    HostFrames frames_;
    HostPreview filled_;
    CellMarks marks_;
    word::ApplicationPtr word_;
    excel::ApplicationPtr excel_;
    rtl::Reference<ChangeWatch> changes_;
    HostedDocument edited_;  ///< by the object model now
    std::optional<PollingThread> monitor_;
};

}  // namespace mergeloom::libreoffice
