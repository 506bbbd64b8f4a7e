#include "office/embedded/word/EmbeddedBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/word/EmbeddedRange.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

class EmbeddedBookmark final : public word::Bookmark {
  public:
    EmbeddedBookmark(std::shared_ptr<WordContent> content, BookmarkRecord& record)
        : content_(std::move(content)), record_(&record) {}

    std::string Name() override { return record().name; }
    word::RangePtr Range() override {
        return std::make_shared<EmbeddedRange>(content_, *record().story, Start(), End());
    }
    CharacterPosition Start() override { return startOf(record()); }
    void SetStart(CharacterPosition start) override { editorFor(start).moveStart(*record_, start); }
    CharacterPosition End() override { return endOf(record()); }
    void SetEnd(CharacterPosition end) override { editorFor(end).moveEnd(*record_, end); }
    void Select() override { content_->selection().moveTo(*record().story, Start(), End()); }

  private:
    /// Raises kObjectDeleted if the bookmark is gone.
    [[nodiscard]] BookmarkRecord& record() const {
        if (!record_->listed) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
        return *record_;
    }
    /// Returns the editor of the bookmark's story, of which one end is about to be moved to the place.
    BookmarkEditor& editorFor(CharacterPosition place) {
        content_->beginMarking(*record().story, place, place);
        return content_->editable(*record_->story).bookmarks;
    }

    std::shared_ptr<WordContent> content_;
    BookmarkRecord* record_;
};

/// The base of both collections: hidden bookmarks are found by name but do not count.
class EmbeddedBookmarks : public word::Bookmarks {
  public:
    explicit EmbeddedBookmarks(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(listed().size()); }
    word::BookmarkPtr Item(int number) override { return make(*listed()[indexOf(number)]); }
    word::BookmarkPtr Item(const std::string& name) override {
        BookmarkRecord* record = find(name);
        if (!record) throw AutomationError(kMemberNotFound, "There is no bookmark named '" + name + "'.");
        return make(*record);
    }
    bool Exists(const std::string& name) override { return find(name) != nullptr; }
    word::BookmarkPtr Add(const std::string& name, word::Range& range) override {
        Story& story = content_->storyNamed(range.storyName());
        return make(content_->addBookmark(name, story, range.Start(), range.End()));
    }
    std::int64_t firstFreeCounter(const std::string& stem) override {
        return content_->bookmarks().firstFreeCounter(stem);
    }

  protected:
    [[nodiscard]] WordContent& content() const { return *content_; }
    /// Returns the bookmarks that count, in the collection's order.
    virtual const std::vector<BookmarkRecord*>& listed() = 0;
    virtual BookmarkRecord* find(const std::string& name) = 0;

  private:
    word::BookmarkPtr make(BookmarkRecord& record) {
        return std::make_shared<EmbeddedBookmark>(content_, record);
    }

    std::shared_ptr<WordContent> content_;
};

class DocumentBookmarks final : public EmbeddedBookmarks {
  public:
    using EmbeddedBookmarks::EmbeddedBookmarks;

  private:
    const std::vector<BookmarkRecord*>& listed() override { return content().bookmarks().inNameOrder(); }
    BookmarkRecord* find(const std::string& name) override { return content().bookmarks().find(name); }
};

class RangeBookmarks final : public EmbeddedBookmarks {
  public:
    RangeBookmarks(const std::shared_ptr<WordContent>& content, const TrackedRange& range)
        : EmbeddedBookmarks(content),
          all_(content->editable(range.story()).bookmarks.in(range.start(), range.end())) {
        const auto counts = [](const BookmarkRecord* record) { return !record->isHidden(); };
        std::copy_if(all_.begin(), all_.end(), std::back_inserter(listed_), counts);
    }

  private:
    const std::vector<BookmarkRecord*>& listed() override { return listed_; }
    BookmarkRecord* find(const std::string& name) override {
        const auto hasName = [&](const BookmarkRecord* record) {
            return equalsIgnoringCase(record->name, name);
        };
        const auto found = std::find_if(all_.begin(), all_.end(), hasName);
        return found == all_.end() ? nullptr : *found;
    }

    std::vector<BookmarkRecord*> all_;
    std::vector<BookmarkRecord*> listed_;
};

}  // namespace

word::BookmarksPtr bookmarksOf(const std::shared_ptr<WordContent>& content) {
    return std::make_shared<DocumentBookmarks>(content);
}

word::BookmarksPtr bookmarksIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range) {
    return std::make_shared<RangeBookmarks>(content, range);
}

}  // namespace mergeloom::embedded
