#pragma once

#include "base/SystemPath.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace mergeloom {

/// A folder on the disk for one test. It is removed with its contents.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        const std::filesystem::path parent = std::filesystem::temp_directory_path();
        std::random_device numbers;
        do {
            path_ = (parent / ("mergeloom-test-" + std::to_string(numbers()))).string();
        } while (!std::filesystem::create_directory(path_));
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(systemPath(path_)); }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(systemPath(*this / name), std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string bytesOf(const std::string& name) const {
        std::ostringstream bytes;
        bytes << std::ifstream(systemPath(*this / name), std::ios::binary).rdbuf();
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
