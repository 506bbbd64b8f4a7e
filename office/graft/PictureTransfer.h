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

/// Copies pictures of an export into an original.
class PictureTransfer {
  public:
    /// The original's content must read its pictures from these files.
    PictureTransfer(WordExport& edited, HeldFiles& files) : edited_(edited), files_(files) {}

    /// Inserts a copy of the picture in an exported story, whose form is its element of DrawingML
    /// (CT_Inline, CT_Anchor, ECMA-376 Part 1, 20.4.2.8, 20.4.2.3). Raises Refusal for other objects and for
    /// pictures that are not in the package. The original's story lists a floating picture as one in the
    /// text, so its lines must not be read after this.
    void insert(embedded::WordContent& content, embedded::Story& original, CharacterPosition position,
                const embedded::Story& exported, pugi::xml_node form);

  private:
    WordExport& edited_;
    HeldFiles& files_;
};

}  // namespace mergeloom::graft
