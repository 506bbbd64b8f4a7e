#pragma once

#include "app/LetterPreview.h"
#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "base/Messages.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/LoadedStructure.h"
#include "ui/designer/OfficeWorker.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace mergeloom {

/// The directions in which a preview goes through its letters.
enum class PreviewStep { Next, Previous };

/// Shows the hosted template filled with the records of the structure document. The template stays open below
/// the preview and is not changed. Must be called by the windows' thread. The work runs on the office's
/// thread. No error leaves it.
class PreviewFlow {
  public:
    /// The objects that have to outlive it.
    struct Ports {
        OfficeJobs& jobs;
        HostAccess& access;
        FileStore& files;
        ErrorHandler& errors;
        Messages& messages;
    };

    explicit PreviewFlow(Ports ports) : ports_(ports) {}

    /// Shows the first letter.
    void start(const std::shared_ptr<LoadedStructure>& structure);
    /// Shows the next or the previous letter; does nothing at the last and at the first one.
    void go(PreviewStep step);
    /// Shows the template again; does nothing without a preview.
    void end();
    /// Forgets the preview of an office that has ended.
    void forget() { shown_.reset(); }

    /// Returns the records that are shown; none without a preview.
    [[nodiscard]] const std::optional<PreviewedRecords>& shown() const { return shown_; }

  private:
    void compile(const LoadedStructure& structure);
    void show(std::size_t letter);
    template <typename Body>
    void run(const Body& body);
    void endShown();

    Ports ports_;
    std::optional<PreviewedRecords> shown_;
    // These belong to the office's thread.
    std::shared_ptr<LoadedStructure> structure_;  ///< that of the letters
    std::unique_ptr<LetterPreview> letters_;
    DocumentKind kind_ = DocumentKind::Word;
    std::size_t letter_ = 0;
};

}  // namespace mergeloom
