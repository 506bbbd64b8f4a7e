#pragma once

#include "base/FileStore.h"

#include <fstream>
#include <string>

/// Files as the programs that are measured against read and write them: at once, and without waiting for the
/// disk.
namespace mergeloom {

class FileSink : public ByteSink {
  public:
    explicit FileSink(const char* path) : file_(path, std::ios::binary) {}
    void write(std::span<const char> bytes) override {
        file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    /// False when not all was written.
    bool close() {
        file_.close();
        return !file_.fail();
    }

  private:
    std::ofstream file_;
};

inline std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

}  // namespace mergeloom
