#pragma once

#include <string>

namespace mergeloom {

/// What opening and saving templates asks of the disk. Paths are full ones.
class TemplateFiles {
  public:
    TemplateFiles() = default;
    TemplateFiles(const TemplateFiles&) = delete;
    TemplateFiles& operator=(const TemplateFiles&) = delete;
    virtual ~TemplateFiles() = default;

    virtual bool exists(const std::string& path) = 0;
    /// Whether another program has the file.
    virtual bool isLocked(const std::string& path) = 0;
    /// A copy of the file in the system's folder for temporary files, under a name of its own with the same
    /// extension. Raises kFileCouldNotBeRead or kFileCouldNotBeSaved with a sentence that names the file.
    virtual std::string copyToTemporaryFolder(const std::string& path) = 0;
    /// Makes or replaces a file by a copy of another, whole or not at all; errors in the same way.
    virtual void copy(const std::string& from, const std::string& to) = 0;
    /// Makes or replaces a file, whole or not at all; errors in the same way.
    virtual void write(const std::string& path, const std::string& bytes) = 0;
    /// Raises kPermissionDenied with a sentence that names the file. A file that is not there is no error.
    virtual void remove(const std::string& path) = 0;
};

}  // namespace mergeloom
