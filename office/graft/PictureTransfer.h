#pragma once

#include "base/FileStore.h"
#include "office/embedded/word/WordContent.h"
#include "office/graft/WordExport.h"

#include <map>
#include <pugixml.hpp>
#include <string>

namespace mergeloom::graft {

/// A store of files in memory.
class HeldFiles final : public FileStore {
  public:
    void put(const std::string& path, std::string bytes) { files_[path] = std::move(bytes); }

    bool fileExists(const std::string& path) override { return files_.contains(path); }
    std::string read(const std::string& path) override;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override;

  private:
    std::map<std::string, std::string> files_;
};

/// Copies inline pictures of an export into an original.
class PictureTransfer {
  public:
    /// The original's content must read its pictures from these files.
    PictureTransfer(WordExport& edited, HeldFiles& files) : edited_(edited), files_(files) {}

    /// Inserts a copy of the picture in a run of an exported story. Raises Refusal for other objects and for
    /// pictures that are not in the package.
    void insert(embedded::WordContent& content, embedded::Story& original, CharacterPosition position,
                const embedded::Story& exported, pugi::xml_node run);

  private:
    WordExport& edited_;
    HeldFiles& files_;
};

}  // namespace mergeloom::graft
