#pragma once

#include "base/LockFile.h"

#include <optional>
#include <string>

/// The lock files that office programs put beside a document while they edit it: ".~lock.NAME#" with one line
/// about the owner.
namespace mergeloom {

/// The owner of a lock file, as far as it is known.
struct LockOwner {
    std::string name;
    std::string host;
    std::string since;
};

/// Returns the other owner of a document's lock file. There is none without such a file, when this process is
/// the owner, and when the file is one that a process of this program left on this computer when it died.
std::optional<LockOwner> otherLockOwner(const std::string& document);

/// A lock file of this process beside a document, removed at the end of its life.
class DocumentLock {
  public:
    /// Makes the file. Does nothing when the document has another owner or its folder cannot be written.
    explicit DocumentLock(const std::string& document);
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;
    ~DocumentLock() = default;

    [[nodiscard]] bool isOf(const std::string& document) const;

  private:
    std::string path_;
    LockFile file_;
};

}  // namespace mergeloom
