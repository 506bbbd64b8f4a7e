#pragma once

#include "office/model/DocumentHost.h"
#include "office/model/OfficeDocument.h"

#include <optional>
#include <string>
#include <variant>

namespace mergeloom::model {

/// The packages of a document that was edited by an office that writes Open Packaging files with loss.
struct EditedPackage {
    DocumentKind kind = DocumentKind::Word;
    int format = 0;               ///< of the file to write: WdSaveFormat's or XlFileFormat's number
    std::string fileName;         ///< of that file, for messages
    const std::string& original;  ///< the file as it was opened
    const std::string& baseline;  ///< the office's export of the document as it was opened
    const std::string& edited;    ///< the office's export of the document as it is now
};

/// The user changed nothing that the exports show.
struct NothingChanged {};

/// The original with the user's changes and nothing else changed.
struct GraftedPackage {
    std::string bytes;
};

/// A change that cannot be repeated on the original.
struct GraftRefusal {
    std::string reason;  ///< a clause for a message: "the page's margins were changed"
    std::string place;   ///< the text near the change, or the name of a sheet; may be empty
};

using GraftResult = std::variant<NothingChanged, GraftedPackage, GraftRefusal>;

/// Repeats on an original package what a user changed in an office. The changes are the difference between
/// two exports of the office, in which the faults of its exporter cancel out. All members are functions of
/// the bytes that they are given.
class PackageGraft {
  public:
    PackageGraft() = default;
    PackageGraft(const PackageGraft&) = delete;
    PackageGraft& operator=(const PackageGraft&) = delete;
    virtual ~PackageGraft() = default;

    /// Returns whether documents of the kind can be grafted at all.
    [[nodiscard]] virtual bool covers(DocumentKind kind) const = 0;
    /// Raises kFileCouldNotBeRead, with a sentence, for bytes that are no such document.
    [[nodiscard]] virtual GraftResult graft(const EditedPackage& package) const = 0;
    /// Returns what the original holds that the office's export of it lacks, as a list for a message; empty
    /// when nothing is known.
    [[nodiscard]] virtual std::string lossesOf(const EditedPackage& package) const = 0;
    /// Returns whether the office itself wrote the original, so that it loses nothing when it is written
    /// again.
    [[nodiscard]] virtual bool isExport(const EditedPackage& package) const = 0;
    /// Returns how many of the entries of a package are those of the original, byte for byte as they are
    /// packed. Folders do not count.
    [[nodiscard]] virtual KeptEntries keptEntries(const std::string& original,
                                                  const std::string& grafted) const = 0;
    /// Compares the office's export of the grafted package with that of the edited document; returns the
    /// first difference that is not the office's own, or none. An office does not write all that it made
    /// itself as it reads it: each block of the proof may equal the edited document's or that of the edited
    /// document's export as read and written once more, which may be empty.
    [[nodiscard]] virtual std::optional<GraftRefusal> findFault(const EditedPackage& package,
                                                                const std::string& editedAgain,
                                                                const std::string& proof) const = 0;
};

}  // namespace mergeloom::model
