#pragma once

#include "base/FileStore.h"
#include "office/embedded/word/WordContent.h"
#include "office/graft/ExportDifference.h"
#include "office/graft/StoryLines.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// A story of a document and its lines.
struct ReadStory {
    embedded::Story* story = nullptr;
    std::vector<Line> lines;
    std::string section;  ///< the canonical form of the last section's properties; only set for exports

    [[nodiscard]] const std::string& name() const { return story->name(); }
};

/// Refuses to read and to write, since a graft works on bytes in memory.
class NoFiles final : public FileStore {
  public:
    bool fileExists(const std::string&) override { return false; }
    std::string read(const std::string& path) override;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override;
};

/// A Word document that an office exported, as lines that can be compared with those of another export.
class WordExport {
  public:
    /// Exports that are compared with each other share the numbers of formats, which must outlive them.
    /// Raises kFileCouldNotBeRead.
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

/// Returns true if two stories of exports are equal, including their bookmarks.
bool areAlike(const ReadStory& a, const ReadStory& b);

/// Returns the name of a bookmark that has different places in two stories, or an empty text if there is
/// none. The second story may also have those of the first one after it was read and written again.
std::string movedMark(const ReadStory& a, const ReadStory& b, const ReadStory* again = nullptr);

}  // namespace mergeloom::graft
