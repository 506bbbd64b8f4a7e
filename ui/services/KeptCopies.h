#pragma once

#include "base/DocumentLock.h"
#include "base/FileStore.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom {

/// A copy of a document with changes that were not saved.
struct KeptCopy {
    std::string path;
    std::string original;  ///< the document's own file; empty when it has none
    std::string time;      ///< when the copy was made
};

/// The copies of unsaved documents in a folder of the user. Each window keeps one at most. It is locked as
/// long as the window lives, and remains when the window ends without removing it.
class KeptCopies {
  public:
    /// The folder is made when it is needed first. The files must outlive this object.
    KeptCopies(FileStore& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// Returns the path for the copy of this window's document, and notes the document's own file. Raises
    /// kFileCouldNotBeSaved with a sentence that names the file.
    std::string pathFor(const std::string& original, const std::string& extension);
    /// Returns this window's copy; none when none was made.
    [[nodiscard]] std::optional<KeptCopy> own() const;
    /// Returns the copies of windows that have ended, with that extension, the newest first.
    [[nodiscard]] std::vector<KeptCopy> left(const std::string& extension) const;
    /// Takes over the copy of a window that has ended. Returns false if another window has taken it.
    bool adopt(const KeptCopy& copy);
    /// Unlocks this window's copy without removing it, so that a later window can offer it.
    void release();
    /// Removes this window's copy. Raises kPermissionDenied with a sentence that names the file.
    void removeOwn();

  private:
    std::string makeFile(const std::string& extension);
    void note(const std::string& original);

    FileStore& files_;
    std::string folder_;
    std::string path_;  ///< of this window's copy
    std::unique_ptr<DocumentLock> lock_;
};

}  // namespace mergeloom
