#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// What the two collections of bookmarks share: hidden bookmarks are found by name but not counted.
class EmbeddedBookmarks : public word::Bookmarks {
  public:
    explicit EmbeddedBookmarks(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(listed().size()); }
    word::BookmarkPtr Item(int number) override;
    word::BookmarkPtr Item(const std::string& name) override;
    bool Exists(const std::string& name) override { return find(name) != nullptr; }
    word::BookmarkPtr Add(const std::string& name, word::Range& range) override;
    std::int64_t firstFreeCounter(const std::string& stem) override {
        return content_->bookmarks().firstFreeCounter(stem);
    }

  protected:
    [[nodiscard]] WordContent& content() const { return *content_; }
    /// The bookmarks that count, in the collection's order.
    virtual const std::vector<BookmarkRecord*>& listed() = 0;
    virtual BookmarkRecord* find(const std::string& name) = 0;

  private:
    word::BookmarkPtr make(BookmarkRecord& record);

    std::shared_ptr<WordContent> content_;
};

/// Document.Bookmarks: over all stories, in name order.
class DocumentBookmarks final : public EmbeddedBookmarks {
  public:
    using EmbeddedBookmarks::EmbeddedBookmarks;

  private:
    const std::vector<BookmarkRecord*>& listed() override { return content().bookmarks().inNameOrder(); }
    BookmarkRecord* find(const std::string& name) override { return content().bookmarks().find(name); }
};

/// The bookmarks of a range as they were when it was asked for them, in place order.
class RangeBookmarks final : public EmbeddedBookmarks {
  public:
    RangeBookmarks(const std::shared_ptr<WordContent>& content, Story& story, CharacterPosition start,
                   CharacterPosition end);

  private:
    const std::vector<BookmarkRecord*>& listed() override { return listed_; }
    BookmarkRecord* find(const std::string& name) override;

    std::vector<BookmarkRecord*> all_;
    std::vector<BookmarkRecord*> listed_;
};

}  // namespace mergeloom::embedded
