#pragma once

#include "office/libreoffice/session/LibreOfficeConverter.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/OfficeDocument.h"
#include "office/model/PackageGraft.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// Repeats the changes of documents that users edit on their originals. A second office, which nobody sees,
/// exports what the graft compares; it is started when it is needed first, and again after it died, so that
/// a document that ends it does not end the one that users see.
class GraftingOffice {
  public:
    /// Both must outlive it.
    GraftingOffice(const model::PackageGraft& graft, FileStore& files) : graft_(graft), files_(files) {}

    [[nodiscard]] const model::PackageGraft& graft() const { return graft_; }
    [[nodiscard]] FileStore& files() { return files_; }
    [[nodiscard]] LibreOfficeSession& hidden();

  private:
    const model::PackageGraft& graft_;
    FileStore& files_;
    std::unique_ptr<LibreOfficeSession> hidden_;
};

using GraftingOfficePtr = std::shared_ptr<GraftingOffice>;

/// What the office wrote of an open document: as it wrote it, and with its places mended.
struct WrittenDocument {
    const std::string& exported;
    const std::string& mended;
};

/// The file of a document as it was opened. All saves of a session repeat the document's changes on it, so
/// that nothing that one save spoils is spoilt again by the next.
class KeptOriginal {
  public:
    /// The source is the path that the office has for the document, from which its relative links lead.
    KeptOriginal(GraftingOfficePtr office, std::string source, std::string bytes)
        : office_(std::move(office)), source_(std::move(source)), bytes_(std::move(bytes)) {}

    /// Returns whether a save in the format can keep the original.
    [[nodiscard]] bool serves(SaveFormat format) const;
    /// Returns the file to write. Raises LossySave, with the mended bytes, when the changes cannot be
    /// repeated or the result is not proved; errors of the hidden office as LossySave, too.
    std::string save(const WrittenDocument& written, const std::string& path, SaveFormat format);
    /// Returns how much of the original is in the file that save returned last; none before.
    [[nodiscard]] const std::optional<model::KeptEntries>& kept() const { return kept_; }

  private:
    using BaselineKey = std::pair<std::string, int>;

    std::string grafted(const model::EditedPackage& package, SaveFormat format);
    const std::string& baseline(const std::string& path, SaveFormat format);
    std::string exportOf(const std::string& bytes, const std::string& path, SaveFormat format);
    std::optional<model::GraftRefusal> findFault(const model::EditedPackage& package, SaveFormat format,
                                                 const std::string& result);

    GraftingOfficePtr office_;
    std::string source_;
    std::string bytes_;
    std::map<BaselineKey, std::string> baselines_;  ///< by the folder, from which links lead, and the format
    std::optional<model::KeptEntries> kept_;
};

/// Keeps the bytes of a document that was opened from the path; none when its kind is not grafted or the path
/// is of another format than Open Packaging. Raises kFileCouldNotBeRead.
std::unique_ptr<KeptOriginal> keepOriginal(const GraftingOfficePtr& office, LibreOfficeFiles& shown,
                                           const DocumentReference& document, const std::string& path,
                                           DocumentKind kind);

}  // namespace mergeloom::libreoffice
