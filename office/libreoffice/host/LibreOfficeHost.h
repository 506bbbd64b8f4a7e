#pragma once

#include "base/FileStore.h"
#include "office/model/DocumentHost.h"

namespace mergeloom::libreoffice {

/// LibreOffice inside a window of ours, over X11.
class LibreOfficeHost final : public DocumentHost {
  public:
    LibreOfficeHost(FileStore& files, const HostWindow& window, HostedPart part, HostListener& listener);
    ~LibreOfficeHost() override;

    void CreateNew(const std::string& programIdentifier) override;
    void Open(const std::string& path) override;
    HostedDocument ActiveDocument() override;
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
};

}  // namespace mergeloom::libreoffice
