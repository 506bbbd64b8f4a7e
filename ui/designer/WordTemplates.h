#pragma once

#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "base/Messages.h"
#include "office/model/DocumentHost.h"
#include "office/model/word/Document.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/TemplateConversion.h"
#include "ui/designer/TemplateFiles.h"
#include "ui/designer/TemplateOffice.h"

#include <optional>

namespace mergeloom {

/// Converts the merge fields of the hosted document to places and shows the user their number; a workbook has
/// none. Runs on the office's thread. Errors of the host pass through.
void convertHostedFields(DocumentHost& host, FileStore& files, ErrorHandler& errors, Messages& messages);

/// Opens and saves Word's templates in the window.
class WordTemplates final : public TemplateOffice {
  public:
    /// Templates of Open Packaging are converted by a hidden office, which is started for that.
    WordTemplates(HostAccess& access, Messages& messages, ErrorHandler& errors, TemplateFiles& files,
                  WordStarter startHiddenWord)
        : access_(access),
          messages_(messages),
          files_(files),
          conversion_(std::move(startHiddenWord), files, errors) {}

    /// Sets the name under which the next template that is converted is saved, in place of its own.
    void SetSavedAsName(const std::string& path) { savedAsName_ = path; }

    [[nodiscard]] const TemplateTexts& texts() const override;
    bool createNew() override;
    std::string fileToOpen(const std::string& path) override;
    void setUpView() override;
    void restoreView() override;
    model::OfficeDocument* document() override;
    std::vector<OfferedFormat> templateFormats(FormatUse use) override;
    [[nodiscard]] const char* defaultExtension() const override { return "dotx"; }
    [[nodiscard]] bool knowsExtensionOf(const std::string& path) const override;
    [[nodiscard]] bool keepsPlaces(const std::string& path) const override;
    [[nodiscard]] bool losesPassword(const std::string& path) override;
    void saveAs(const std::string& path) override;
    void exportCopy(const std::string& path) override;

  private:
    bool createOfAnyProgram();
    bool create(const char* programIdentifier);
    word::DocumentPtr hosted();

    HostAccess& access_;
    Messages& messages_;
    TemplateFiles& files_;
    TemplateConversion conversion_;
    std::string savedAsName_;
    std::optional<bool> earlierShowBookmarks_;
    word::DocumentPtr document_;
};

}  // namespace mergeloom
