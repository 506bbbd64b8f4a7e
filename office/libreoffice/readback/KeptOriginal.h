#pragma once

#include "office/libreoffice/readback/GraftingOffice.h"
#include "office/model/OfficeDocument.h"
#include "office/model/PackageGraft.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace mergeloom::libreoffice {

/// The office's export of an open document: as it was written, and with its places mended.
struct WrittenDocument {
    const std::string& exported;
    const std::string& mended;
};

/// A file as it can be written again.
struct OriginalFile {
    std::string path;
    SaveFormat format;
};

/// The file of a document as it was opened. Each save of a session repeats all changes on it, so that faults
/// of one save do not affect the next.
class KeptOriginal {
  public:
    /// The file is the original. The source is the path that the office has for the document, from which its
    /// relative links lead. The password is the document's, or empty.
    KeptOriginal(GraftingOfficePtr office, OriginalFile file, std::string source, std::string bytes,
                 std::string password)
        : office_(std::move(office)),
          file_(std::move(file)),
          source_(std::move(source)),
          bytes_(std::make_shared<const std::string>(std::move(bytes))),
          password_(std::move(password)) {}

    /// Begins the export of the original that a save to its own file needs, and does not wait for its end.
    /// Does nothing if it was begun before, or during another export.
    void prepare();
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
    static BaselineKey keyOf(const std::string& path, SaveFormat format);
    const std::string& baseline(const std::string& path, SaveFormat format);
    void takePrepared();
    [[nodiscard]] HiddenExport exportOf(OriginalBytes bytes, const std::string& path,
                                        SaveFormat format) const;
    std::optional<model::GraftRefusal> findFault(const model::EditedPackage& package, SaveFormat format,
                                                 const std::string& result);

    GraftingOfficePtr office_;
    OriginalFile file_;
    std::string source_;
    OriginalBytes bytes_;                           ///< not encrypted
    std::string password_;                          ///< for files in between; empty for none
    std::map<BaselineKey, std::string> baselines_;  ///< by the folder, from which links lead, and the format
    std::shared_future<std::string> prepared_;      ///< the baseline for the original's own file
    std::optional<model::KeptEntries> kept_;
};

/// Returns the file to write for an export of the open document: the export itself, or what the original
/// makes of it, if there is one that serves the format; the original may be null. Compares the export with
/// the document meanwhile. Raises the errors of checkWritten and of KeptOriginal::save.
std::string checkedFile(LibreOfficeSession& shown, const DocumentReference& document, KeptOriginal* original,
                        const WrittenDocument& written, const std::string& path, SaveFormat format);

/// Keeps the bytes of a document that was opened from the path. Returns none if its kind cannot be grafted,
/// or if the file is of another format than Open Packaging. Raises kFileCouldNotBeRead.
std::unique_ptr<KeptOriginal> keepOriginal(const GraftingOfficePtr& office, LibreOfficeFiles& shown,
                                           const DocumentReference& document, const std::string& path,
                                           DocumentKind kind);

}  // namespace mergeloom::libreoffice
