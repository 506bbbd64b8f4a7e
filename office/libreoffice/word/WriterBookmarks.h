#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Bookmarks.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// What the two collections of bookmarks share: hidden bookmarks are found by name but not counted.
class WriterBookmarks : public word::Bookmarks {
  public:
    explicit WriterBookmarks(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(listed().size()); }
    word::BookmarkPtr Item(int number) override;
    word::BookmarkPtr Item(const std::string& name) override;
    bool Exists(const std::string& name) override { return find(name) != nullptr; }
    word::BookmarkPtr Add(const std::string& name, word::Range& range) override;
    std::int64_t firstFreeCounter(const std::string& stem) override;

  protected:
    [[nodiscard]] WriterContent& content() const { return *content_; }
    /// The bookmarks that count, in the collection's order.
    virtual std::vector<MarkPtr> listed() = 0;
    virtual MarkPtr find(const std::string& name) = 0;

  private:
    std::shared_ptr<WriterContent> content_;
};

/// Document.Bookmarks: over all stories, in name order.
class DocumentBookmarks final : public WriterBookmarks {
  public:
    using WriterBookmarks::WriterBookmarks;

  private:
    std::vector<MarkPtr> listed() override;
    MarkPtr find(const std::string& name) override;
};

/// The bookmarks of a range as they were when it was asked for them, in place order.
class RangeBookmarks final : public WriterBookmarks {
  public:
    RangeBookmarks(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch);

  private:
    std::vector<MarkPtr> listed() override { return listed_; }
    MarkPtr find(const std::string& name) override;

    std::vector<MarkPtr> all_;
    std::vector<MarkPtr> listed_;
};

}  // namespace mergeloom::libreoffice
