#pragma once

#include "base/DocumentLock.h"
#include "base/FileStore.h"

#include <optional>
#include <string>

namespace mergeloom {

/// The operations on files for opening and saving templates. Paths are absolute.
class TemplateFiles {
  public:
    TemplateFiles() = default;
    TemplateFiles(const TemplateFiles&) = delete;
    TemplateFiles& operator=(const TemplateFiles&) = delete;
    virtual ~TemplateFiles() = default;

    virtual bool exists(const std::string& path) = 0;
    /// Returns true if another program has the file open.
    virtual bool isLocked(const std::string& path) = 0;
    /// Returns the other program's user by the lock file beside the file; none without one.
    virtual std::optional<LockOwner> lockOwner(const std::string& path) = 0;
    /// Returns true if a file of Open Packaging is encrypted. Raises kFileCouldNotBeRead.
    virtual bool isEncrypted(const std::string& path) = 0;
    /// Copies the file to the system's folder for temporary files, under a name of its own with the same
    /// extension, and returns the copy's path. Raises kFileCouldNotBeRead or kFileCouldNotBeSaved with a
    /// sentence that names the file.
    virtual std::string copyToTemporaryFolder(const std::string& path) = 0;
    /// Makes or replaces a file by a copy of another, whole or not at all; errors in the same way.
    virtual void copy(const std::string& from, const std::string& to) = 0;
    /// Copies the file to a backup beside it and returns the backup's path. Replaces no earlier backup.
    /// Raises the same errors.
    virtual std::string keepBackup(const std::string& path) = 0;
    /// Makes or replaces a file, whole or not at all; errors in the same way.
    virtual void write(const std::string& path, const std::string& bytes) = 0;
    /// Removes a file; one that does not exist is no error. Raises kPermissionDenied with a sentence that
    /// names the file.
    virtual void remove(const std::string& path) = 0;
};

/// The files of templates on the disk.
class DiskTemplateFiles final : public TemplateFiles {
  public:
    /// The store is the disk's and has to outlive it.
    explicit DiskTemplateFiles(FileStore& store) : store_(store) {}

    bool exists(const std::string& path) override { return store_.fileExists(path); }
    bool isLocked(const std::string& path) override;
    std::optional<LockOwner> lockOwner(const std::string& path) override { return otherLockOwner(path); }
    bool isEncrypted(const std::string& path) override;
    std::string copyToTemporaryFolder(const std::string& path) override;
    void copy(const std::string& from, const std::string& to) override { store_.copy(from, to); }
    std::string keepBackup(const std::string& path) override { return mergeloom::keepBackup(store_, path); }
    void write(const std::string& path, const std::string& bytes) override;
    void remove(const std::string& path) override;

  private:
    FileStore& store_;
};

}  // namespace mergeloom
