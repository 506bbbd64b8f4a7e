#pragma once

#include "office/model/DocumentHost.h"
#include "office/model/OfficeDocument.h"

#include <optional>
#include <string>
#include <variant>

namespace mergeloom::model {

/// The packages of a document that was edited by an office whose exports lose content.
struct EditedPackage {
    DocumentKind kind = DocumentKind::Word;
    int format = 0;               ///< of the file to write: WdSaveFormat's or XlFileFormat's number
    std::string fileName;         ///< of that file, for messages
    const std::string& original;  ///< the file as it was opened
    const std::string& baseline;  ///< the office's export of the document as it was opened
    const std::string& edited;    ///< the office's export of the document as it is now
};

/// The exports show no change.
struct NothingChanged {};

/// The original with the user's changes and no others.
struct GraftedPackage {
    std::string bytes;
};

/// A change that cannot be repeated on the original.
struct GraftRefusal {
    std::string reason;  ///< a clause for a message: "the page's margins were changed"
    std::string place;   ///< the text near the change, or the name of a sheet; may be empty
};

using GraftResult = std::variant<NothingChanged, GraftedPackage, GraftRefusal>;

/// Repeats a user's changes in an office on the original package. The changes are the difference between two
/// exports of the office, in which the faults of its exporter cancel out. The members keep no state: results
/// depend on the given bytes only.
class PackageGraft {
  public:
    PackageGraft() = default;
    PackageGraft(const PackageGraft&) = delete;
    PackageGraft& operator=(const PackageGraft&) = delete;
    virtual ~PackageGraft() = default;

    /// Returns true if documents of the kind can be grafted.
    [[nodiscard]] virtual bool covers(DocumentKind kind) const = 0;
    /// Raises kFileCouldNotBeRead, with a sentence, for bytes that are no such document.
    [[nodiscard]] virtual GraftResult graft(const EditedPackage& package) const = 0;
    /// Returns a list, for a message, of the features that the original has and the office's export of it
    /// lacks. Empty if none is found.
    [[nodiscard]] virtual std::string lossesOf(const EditedPackage& package) const = 0;
    /// Returns true if the office itself wrote the original, so that writing it again loses nothing.
    [[nodiscard]] virtual bool isExport(const EditedPackage& package) const = 0;
    /// Returns the number of entries of a package that are byte for byte those of the original, as packed.
    /// Folders are not counted.
    [[nodiscard]] virtual KeptEntries keptEntries(const std::string& original,
                                                  const std::string& grafted) const = 0;
    /// Compares the office's export of the grafted package with that of the edited document; returns the
    /// first difference that is not the office's own, or none. An office does not always read its own output
    /// as it was: each block of the proof may equal that of the edited document, or that of the edited
    /// document's export after it was read and written once more. The latter may be empty.
    [[nodiscard]] virtual std::optional<GraftRefusal> findFault(const EditedPackage& package,
                                                                const std::string& editedAgain,
                                                                const std::string& proof) const = 0;
};

}  // namespace mergeloom::model
