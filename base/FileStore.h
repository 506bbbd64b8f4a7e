#pragma once

#include <functional>
#include <span>
#include <string>

namespace mergeloom {

/// Receives bytes one after the other.
class ByteSink {
  public:
    ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    /// Raises an AutomationError with the reason when the bytes cannot be written.
    virtual void write(std::span<const char> bytes) = 0;
};

/// The storage of documents: the disk in the program, memory or a failing disk in tests.
class FileStore {
  public:
    FileStore() = default;
    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;
    virtual ~FileStore() = default;

    virtual bool fileExists(const std::string& path) = 0;
    /// Returns the whole file. Raises kFileCouldNotBeRead with a sentence that names the file.
    virtual std::string read(const std::string& path) = 0;
    /// Writes a file whole or not at all: an existing file stays whole until all bytes are safe.
    /// Raises kFileCouldNotBeSaved with a sentence that names the file; errors of the writer pass through.
    virtual void save(const std::string& path, const std::function<void(ByteSink&)>& writer) = 0;
    /// Raises kFileCouldNotBeSaved, with a sentence that names the file, if no file can be made in its
    /// folder.
    virtual void checkFolder(const std::string& path) { static_cast<void>(path); }
    /// Writes a file as save does, but leaves it to finishBatch that its bytes are safe from a loss of power.
    /// Several threads may call it and read at a time.
    virtual void saveInBatch(const std::string& path, const std::function<void(ByteSink&)>& writer) {
        save(path, writer);
    }
    /// Makes the files that were saved in a batch safe. Raises kFileCouldNotBeSaved with a sentence that
    /// names one of them.
    virtual void finishBatch() {}
    /// Makes or replaces a file, whole or not at all, by a copy of another; on a disk the copy has the
    /// permissions of the original. Errors as for read and save.
    virtual void copy(const std::string& from, const std::string& to) {
        const std::string bytes = read(from);
        save(to, [&](ByteSink& sink) { sink.write(bytes); });
    }
};

/// Copies a file to FILE.bak or, if that exists with other content, to FILE.bak1, FILE.bak2 and so on, so
/// that no backup is ever lost. Returns the path of the copy. Raises the errors of FileStore::copy.
std::string keepBackup(FileStore& files, const std::string& path);

}  // namespace mergeloom
