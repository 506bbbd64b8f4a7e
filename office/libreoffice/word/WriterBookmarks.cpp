#include "office/libreoffice/word/WriterBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/word/WriterBookmark.h"
#include "office/model/word/BookmarkName.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// What the two collections of bookmarks share: hidden bookmarks are found by name but not counted.
class WriterBookmarks : public word::Bookmarks {
  public:
    explicit WriterBookmarks(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(listed().size()); }

    word::BookmarkPtr Item(int number) override {
        const std::vector<std::string> names = listed();
        if (number < 1 || number > static_cast<int>(names.size())) {
            throw AutomationError(kMemberNotFound,
                                  "There is no bookmark number " + std::to_string(number) + ".");
        }
        return made(names[static_cast<std::size_t>(number) - 1]);
    }

    word::BookmarkPtr Item(const std::string& name) override {
        const std::string found = find(name);
        if (found.empty())
            throw AutomationError(kMemberNotFound, "There is no bookmark named '" + name + "'.");
        return made(found);
    }

    bool Exists(const std::string& name) override { return !find(name).empty(); }

    word::BookmarkPtr Add(const std::string& name, word::Range& range) override {
        content_->call([&] { content_->addBookmark(name, *content_->linkedTo(range)); });
        return std::make_shared<WriterBookmark>(content_, name);
    }

    std::int64_t firstFreeCounter(const std::string& stem) override {
        return content_->call([&] { return content_->bookmarkNames().firstFreeCounter(stem); });
    }

  protected:
    [[nodiscard]] WriterContent& content() const { return *content_; }

    /// The bookmarks that count, in the collection's order.
    virtual std::vector<std::string> listed() = 0;
    virtual std::string find(const std::string& name) = 0;
    virtual word::BookmarkPtr made(const std::string& name) {
        return std::make_shared<WriterBookmark>(content_, name);
    }
    [[nodiscard]] const std::shared_ptr<WriterContent>& sharedContent() const { return content_; }

  private:
    std::shared_ptr<WriterContent> content_;
};

class DocumentBookmarks final : public WriterBookmarks {
  public:
    using WriterBookmarks::WriterBookmarks;

  private:
    std::vector<std::string> listed() override {
        return content().call([&] { return content().bookmarkNames().inNameOrder(); });
    }
    std::string find(const std::string& name) override {
        return content().call([&] { return content().bookmarkNames().find(name); });
    }
};

class RangeBookmarks final : public WriterBookmarks {
  public:
    RangeBookmarks(const std::shared_ptr<WriterContent>& content, TextReference story,
                   std::vector<LiveBookmark> bookmarks)
        : WriterBookmarks(content), story_(std::move(story)), bookmarks_(std::move(bookmarks)) {}

  private:
    std::vector<std::string> listed() override {
        std::vector<std::string> names;
        for (const LiveBookmark& bookmark : bookmarks_) {
            if (!word::isHiddenBookmark(bookmark.name)) names.push_back(bookmark.name);
        }
        return names;
    }
    std::string find(const std::string& name) override {
        const auto isIt = [&](const LiveBookmark& other) { return equalsIgnoringCase(other.name, name); };
        const auto found = std::ranges::find_if(bookmarks_, isIt);
        return found == bookmarks_.end() ? "" : found->name;
    }
    word::BookmarkPtr made(const std::string& name) override {
        const auto found = std::ranges::find(bookmarks_, name, &LiveBookmark::name);
        return std::make_shared<WriterBookmark>(sharedContent(), story_, *found);
    }

    TextReference story_;
    std::vector<LiveBookmark> bookmarks_;
};

}  // namespace

word::BookmarksPtr bookmarksOf(const std::shared_ptr<WriterContent>& content) {
    return std::make_shared<DocumentBookmarks>(content);
}

word::BookmarksPtr bookmarksOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range) {
    return content->call([&] {
        return std::make_shared<RangeBookmarks>(content, range.story, content->finder().touching(range));
    });
}

}  // namespace mergeloom::libreoffice
