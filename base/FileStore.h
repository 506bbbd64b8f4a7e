#pragma once

#include "base/ByteSink.h"

#include <functional>
#include <string>

namespace mergeloom {

/// Where documents lie: the disk in the program, memory or a disk that fails in tests.
class FileStore {
  public:
    FileStore() = default;
    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;
    virtual ~FileStore() = default;

    virtual bool fileExists(const std::string& path) = 0;
    /// The whole file. Raises kFileCouldNotBeRead with a sentence that names the file.
    virtual std::string read(const std::string& path) = 0;
    /// Writes a file whole or not at all: what stood at the path stays whole until all bytes are safe.
    /// Raises kFileCouldNotBeSaved with a sentence that names the file; errors of the writer pass through.
    virtual void save(const std::string& path, const std::function<void(ByteSink&)>& writer) = 0;
    /// Makes or replaces a file, whole or not at all, by a copy of another; on a disk the copy is as open to
    /// others as the original. Errors as for read and save.
    virtual void copy(const std::string& from, const std::string& to) {
        const std::string bytes = read(from);
        save(to, [&](ByteSink& sink) { sink.write(bytes); });
    }
};

}  // namespace mergeloom
