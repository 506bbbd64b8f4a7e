#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/PackageGraft.h"

#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace mergeloom::libreoffice {

using OriginalBytes = std::shared_ptr<const std::string>;

/// An export of a document by the hidden office; see LibreOfficeFiles::exportOf for the members.
struct HiddenExport {
    std::string source;
    OriginalBytes bytes;
    std::string path;
    SaveFormat format;
    std::string password;
};

/// Repeats the changes of edited documents on their originals. A second, hidden office makes the exports that
/// are compared. It is started on demand, and again after it has ended, so that a document that crashes it
/// does not end the visible one. Its members are called by one thread at a time.
class GraftingOffice {
  public:
    /// The arguments must outlive it.
    GraftingOffice(const model::PackageGraft& graft, FileStore& files) : graft_(graft), files_(files) {}
    GraftingOffice(const GraftingOffice&) = delete;
    GraftingOffice& operator=(const GraftingOffice&) = delete;
    /// Ends the export that was begun last.
    ~GraftingOffice();

    [[nodiscard]] const model::PackageGraft& graft() const { return graft_; }
    /// Returns the export, after the one that was begun last. Raises the errors of
    /// LibreOfficeFiles::exportOf, and kNotAvailable.
    std::string exportOf(const HiddenExport& wanted);
    /// Begins an export on a thread of its own; its errors are those of exportOf. Returns an invalid future,
    /// and does nothing, while another one is made.
    std::shared_future<std::string> beginExport(HiddenExport wanted);

  private:
    std::string makeExport(const HiddenExport& wanted);
    [[nodiscard]] LibreOfficeSession& hidden();
    [[nodiscard]] bool isExporting() const;
    void setExporting(LibreOfficeProcess* process);

    const model::PackageGraft& graft_;
    FileStore& files_;
    std::unique_ptr<LibreOfficeSession> hidden_;
    std::mutex processMutex_;
    LibreOfficeProcess* exporting_ = nullptr;  ///< the office during an export
    bool ends_ = false;
    std::shared_future<std::string> begun_;
    std::thread thread_;
};

using GraftingOfficePtr = std::shared_ptr<GraftingOffice>;

}  // namespace mergeloom::libreoffice
