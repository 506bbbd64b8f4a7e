#pragma once

#include "base/FileStore.h"
#include "office/embedded/word/WordContent.h"
#include "office/graft/ExportDifference.h"
#include "office/graft/StoryLines.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// A story of a document with its lines.
struct ReadStory {
    embedded::Story* story = nullptr;
    std::vector<Line> lines;
    std::string section;  ///< the canonical form of the last section's properties; only of an export

    [[nodiscard]] const std::string& name() const { return story->name(); }
};

/// Refuses to read and to write: a graft makes bytes of bytes.
class NoFiles final : public FileStore {
  public:
    bool fileExists(const std::string&) override { return false; }
    std::string read(const std::string& path) override;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override;
};

/// A Word document that an office exported, as lines that can be compared with those of another export.
class WordExport {
  public:
    /// Exports that are compared share their numbers of formats, which must outlive them. Raises
    /// kFileCouldNotBeRead.
    WordExport(const std::string& bytes, const std::string& fileName, FormatNumbers& formats);

    [[nodiscard]] opc::Package& package() { return content_.package(); }
    [[nodiscard]] embedded::WordContent& content() { return content_; }
    [[nodiscard]] std::vector<ReadStory>& stories() { return stories_; }
    [[nodiscard]] CanonicalXml canonicalOf(const embedded::Story& story);

  private:
    NoFiles files_;
    embedded::WordContent content_;
    std::vector<ReadStory> stories_;
};

/// Returns whether two stories of exports are alike, their bookmarks included.
bool areAlike(const ReadStory& a, const ReadStory& b);

/// Returns the name of a bookmark that is not in the same place of two stories; empty when there is none.
std::string movedMark(const ReadStory& a, const ReadStory& b);

}  // namespace mergeloom::graft
