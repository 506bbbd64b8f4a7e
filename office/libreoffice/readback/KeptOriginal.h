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
#include <variant>

namespace mergeloom::libreoffice {

/// Repeats the changes of edited documents on their originals. A second, hidden office makes the exports that
/// are compared. It is started on demand, and again after it has ended, so that a document that crashes it
/// does not end the visible one.
class GraftingOffice {
  public:
    /// The arguments must outlive it.
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

/// The office's export of an open document: as it was written, and with its places mended.
struct WrittenDocument {
    const std::string& exported;
    const std::string& mended;
};

/// The file of a document as it was opened. Each save of a session repeats all changes on it, so that faults
/// of one save do not affect the next.
class KeptOriginal {
  public:
    /// The source is the path that the office has for the document, from which its relative links lead. The
    /// password is the document's, or empty.
    KeptOriginal(GraftingOfficePtr office, std::string source, std::string bytes, std::string password)
        : office_(std::move(office)),
          source_(std::move(source)),
          bytes_(std::move(bytes)),
          password_(std::move(password)) {}

    /// Returns true if a save in the format can keep the original.
    [[nodiscard]] bool serves(SaveFormat format) const;
    /// Returns the file to write. Raises LossySave, with the mended bytes, when the changes cannot be
    /// repeated or the result is not proved; errors of the hidden office as LossySave, too.
    std::string save(const WrittenDocument& written, const std::string& path, SaveFormat format);
    /// Returns the number of the original's entries in the file that save returned last. Returns none before
    /// the first save.
    [[nodiscard]] const std::optional<model::KeptEntries>& kept() const { return kept_; }

  private:
    using BaselineKey = std::pair<std::string, int>;

    /// Either the bytes of the proved result, or the reason why there is none.
    using Grafted = std::variant<std::string, model::GraftRefusal>;

    Grafted grafted(const model::EditedPackage& package, const std::string& mended, SaveFormat format);
    const std::string& baseline(const std::string& path, SaveFormat format);
    std::string exportOf(const std::string& bytes, const std::string& path, SaveFormat format);
    std::optional<model::GraftRefusal> findFault(const model::EditedPackage& package, SaveFormat format,
                                                 const std::string& result);

    GraftingOfficePtr office_;
    std::string source_;
    std::string bytes_;                             ///< not encrypted
    std::string password_;                          ///< for files in between; empty for none
    std::map<BaselineKey, std::string> baselines_;  ///< by the folder, from which links lead, and the format
    std::optional<model::KeptEntries> kept_;
};

/// Keeps the bytes of a document that was opened from the path. Returns none if its kind cannot be grafted,
/// or if the file is of another format than Open Packaging. Raises kFileCouldNotBeRead.
std::unique_ptr<KeptOriginal> keepOriginal(const GraftingOfficePtr& office, LibreOfficeFiles& shown,
                                           const DocumentReference& document, const std::string& path,
                                           DocumentKind kind);

}  // namespace mergeloom::libreoffice
