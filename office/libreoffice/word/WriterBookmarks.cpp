#include "office/libreoffice/word/WriterBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/StoryPositions.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

TextPlace placeAt(const TextReference& story, CharacterPosition position) {
    const StoryPositions positions(story);
    if (position.value >= 0 && position.value <= positions.length().value) return positions.placeOf(position);
    throw AutomationError(kCommandFailed, "The place lies outside the document's text.");
}

/// Returns the end as Writer keeps it: a bookmark from inside a table to after it ends with the table's last
/// cell.
TextPlace endInTable(const TextPlace& start, const TextPlace& end) {
    const TableReference table = tableAt(start.at);
    if (!table.is() || tableAt(end.at).is()) return end;
    const TableReference before = tableBefore(end.at);
    if (!before.is() || !isSameTable(before, table)) return end;
    return {cursorOverTable(table)->getEnd(), Beyond::Table};
}

CursorReference cursorFor(const TextPlace& start, const TextPlace& end) try {
    return cursorOver(start.at, end.at);
} catch (const css::uno::RuntimeException&) {
    throw AutomationError(kCommandFailed,
                          "LibreOffice cannot mark a text that goes from outside a table into it.");
}

/// A bookmark by its name; Writer is asked where it is, unless that was known when the bookmark was found and
/// none was moved since.
class WriterBookmark final : public word::Bookmark {
  public:
    WriterBookmark(std::shared_ptr<WriterContent> content, std::string name)
        : content_(std::move(content)), name_(std::move(name)) {}

    WriterBookmark(std::shared_ptr<WriterContent> content, const TextReference& story,
                   const LiveBookmark& found)
        : content_(std::move(content)),
          name_(found.name),
          found_(Found{story, found, content_->bookmarks().version()}) {}

    std::string Name() override;
    word::RangePtr Range() override;
    CharacterPosition Start() override;
    void SetStart(CharacterPosition start) override;
    CharacterPosition End() override;
    void SetEnd(CharacterPosition end) override;
    void moveStart(CharacterCount count) override;
    void moveEnd(CharacterCount count) override;
    void Select() override;

  private:
    struct Found {
        TextReference story;
        LiveBookmark bookmark;
        std::int64_t version;
    };

    [[nodiscard]] TrackedRange range() const;
    void put(const TextReference& story, const TextPlace& start, const TextPlace& end);
    /// Each end takes the other one along where it would pass it.
    void startAt(const TrackedRange& former, const TextPlace& start);
    void endAt(const TrackedRange& former, const TextPlace& end);

    std::shared_ptr<WriterContent> content_;
    std::string name_;
    std::optional<Found> found_;
};

TrackedRange WriterBookmark::range() const {
    if (found_ && found_->version == content_->bookmarks().version())
        return {found_->story, cursorOver(found_->bookmark.anchor), Beyond::Nothing, found_->bookmark.beyond};
    const LiveBookmark bookmark = content_->bookmarks().get(name_);
    return {content_->storyOf(bookmark.anchor), cursorOver(bookmark.anchor), Beyond::Nothing,
            bookmark.beyond};
}

std::string WriterBookmark::Name() {
    return content_->call([&] {
        const std::string name = content_->bookmarkNames().find(name_);
        if (name.empty()) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
        return name;
    });
}

word::RangePtr WriterBookmark::Range() {
    return content_->call([&] { return makeRange(content_, range()); });
}

CharacterPosition WriterBookmark::Start() {
    return Range()->Start();
}

CharacterPosition WriterBookmark::End() {
    return Range()->End();
}

void WriterBookmark::put(const TextReference& story, const TextPlace& start, const TextPlace& end) {
    const TextPlace last = endInTable(start, end);
    content_->addBookmark(name_, {story, cursorFor(start, last), Beyond::Nothing, last.beyond});
}

void WriterBookmark::startAt(const TrackedRange& former, const TextPlace& start) {
    const bool isAfterEnd = order::compare(former.story, former.end(), start) < 0;
    put(former.story, start, isAfterEnd ? start : former.end());
}

void WriterBookmark::endAt(const TrackedRange& former, const TextPlace& end) {
    const bool isBeforeStart = order::compare(former.story, end, former.start()) < 0;
    put(former.story, isBeforeStart ? end : former.start(), end);
}

void WriterBookmark::SetStart(CharacterPosition start) {
    content_->call([&] {
        const TrackedRange former = range();
        startAt(former, placeAt(former.story, start));
    });
}

void WriterBookmark::SetEnd(CharacterPosition end) {
    content_->call([&] {
        const TrackedRange former = range();
        endAt(former, placeAt(former.story, end));
    });
}

void WriterBookmark::moveStart(CharacterCount count) {
    content_->call([&] {
        const TrackedRange former = range();
        startAt(former, {movedBy(former.cursor->getStart(), count)->getStart()});
    });
}

void WriterBookmark::moveEnd(CharacterCount count) {
    content_->call([&] {
        const TrackedRange former = range();
        endAt(former, {movedBy(former.cursor->getEnd(), count)->getStart()});
    });
}

void WriterBookmark::Select() {
    content_->call([&] { content_->select(range()); });
}

/// The common part of the two collections of bookmarks. Hidden bookmarks are found by name but not counted.
class WriterBookmarks : public word::Bookmarks {
  public:
    explicit WriterBookmarks(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(listed().size()); }

    word::BookmarkPtr Item(int number) override { return made(listed()[indexOf(number)]); }

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
    /// The bookmarks that count, in the collection's order.
    virtual std::vector<std::string> listed() = 0;
    virtual std::string find(const std::string& name) = 0;
    virtual word::BookmarkPtr made(const std::string& name) {
        return std::make_shared<WriterBookmark>(content_, name);
    }
    [[nodiscard]] const std::shared_ptr<WriterContent>& content() const { return content_; }

  private:
    std::shared_ptr<WriterContent> content_;
};

class DocumentBookmarks final : public WriterBookmarks {
  public:
    using WriterBookmarks::WriterBookmarks;

  private:
    std::vector<std::string> listed() override {
        return content()->call([&] { return content()->bookmarkNames().inNameOrder(); });
    }
    std::string find(const std::string& name) override {
        return content()->call([&] { return content()->bookmarkNames().find(name); });
    }
};

class RangeBookmarks final : public WriterBookmarks {
  public:
    RangeBookmarks(const std::shared_ptr<WriterContent>& content, const TextReference& story,
                   std::vector<LiveBookmark> bookmarks)
        : WriterBookmarks(content), story_(story), bookmarks_(std::move(bookmarks)) {}

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
        return std::make_shared<WriterBookmark>(content(), story_, *found);
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
