#pragma once

#include "office/libreoffice/word/BookmarkNames.h"
#include "office/libreoffice/word/WriterModel.h"

#include <cstdint>
#include <map>
#include <string>

namespace mergeloom::libreoffice {

/// A bookmark as Writer has it, and the mark after its end that belongs to it in Word.
struct LiveBookmark {
    std::string name;
    RangeReference anchor;
    Beyond beyond = Beyond::Nothing;

    [[nodiscard]] TextPlace start() const { return {anchor->getStart(), Beyond::Nothing}; }
    [[nodiscard]] TextPlace end() const { return {anchor->getEnd(), beyond}; }
};

/// The bookmarks of a document by their names. Writer's own object says where each is.
class LiveBookmarks {
  public:
    explicit LiveBookmarks(const WriterModel& model) : model_(model) {}

    /// Somebody else may have changed the document: the names are read anew when they are asked for.
    void forget() {
        forgetPlaces();
        beyond_.clear();
    }

    /// A step was taken back.
    void forgetPlaces() {
        areNamesKnown_ = false;
        ++version_;
    }

    [[nodiscard]] BookmarkNames& names();

    /// Raises kObjectDeleted when there is no bookmark of that name.
    [[nodiscard]] LiveBookmark get(const std::string& name);

    /// Returns the bookmark of one of Writer's objects.
    [[nodiscard]] LiveBookmark of(const css::uno::Any& bookmark);

    /// Returns a number that changes whenever a bookmark may be elsewhere than it was.
    [[nodiscard]] std::int64_t version() const { return version_; }

    /// Finds out what mark after the anchor's end belongs to the bookmark.
    [[nodiscard]] Beyond beyondOf(const std::string& name, const RangeReference& anchor) const;

    /// Puts a bookmark there; one of that name moves. Returns its anchor.
    RangeReference put(const std::string& name, const TrackedRange& range);

    void remove(const std::string& name);

  private:
    const WriterModel& model_;
    BookmarkNames names_;
    bool areNamesKnown_ = false;
    std::int64_t version_ = 0;
    /// Of the bookmarks that were put in here, what Writer's cannot hold.
    std::map<std::string, Beyond> beyond_;
};

/// Returns the anchor of one of Writer's bookmarks.
inline RangeReference anchorOf(const css::uno::Any& bookmark) {
    return Reference<css::text::XTextContent>(bookmark, UNO_QUERY_THROW)->getAnchor();
}

}  // namespace mergeloom::libreoffice
