#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace mergeloom {

/// A folder of a test's own on the disk, removed with all that is in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "mergeloom-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string bytesOf(const std::string& name) const {
        std::ostringstream bytes;
        bytes << std::ifstream(*this / name, std::ios::binary).rdbuf();
        return bytes.str();
    }
    [[nodiscard]] int entryCount() const {
        int count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(path_))
            ++count;
        return count;
    }

  private:
    std::string path_;
};

}  // namespace mergeloom
