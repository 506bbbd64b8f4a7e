#pragma once

#include "base/FileStore.h"
#include "ui/designer/TemplateFiles.h"

namespace mergeloom {

/// The files of templates on the disk.
class DiskTemplateFiles final : public TemplateFiles {
  public:
    /// The store is the disk's and has to outlive it.
    explicit DiskTemplateFiles(FileStore& store) : store_(store) {}

    bool exists(const std::string& path) override { return store_.fileExists(path); }
    bool isLocked(const std::string& path) override;
    std::string copyToTemporaryFolder(const std::string& path) override;
    void copy(const std::string& from, const std::string& to) override { store_.copy(from, to); }
    void write(const std::string& path, const std::string& bytes) override;
    void remove(const std::string& path) override;

  private:
    FileStore& store_;
};

}  // namespace mergeloom
