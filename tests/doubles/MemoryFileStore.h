#pragma once

#include "base/AutomationError.h"
#include "base/FileStore.h"

#include <map>
#include <utility>

namespace mergeloom {

/// Files in memory, by their given paths.
class MemoryFileStore final : public FileStore {
  public:
    MemoryFileStore() = default;
    explicit MemoryFileStore(std::map<std::string, std::string> initial) : files(std::move(initial)) {}

    bool fileExists(const std::string& path) override { return files.count(path) > 0; }

    std::string read(const std::string& path) override {
        const auto file = files.find(path);
        if (file != files.end()) return file->second;
        throw AutomationError(kFileCouldNotBeRead,
                              "The file '" + path + "' could not be read: it does not exist.");
    }

    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        Sink sink;
        writer(sink);
        files[path] = std::move(sink.bytes);
    }

    std::map<std::string, std::string> files;

  private:
    struct Sink final : ByteSink {
        void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
        std::string bytes;
    };
};

}  // namespace mergeloom
