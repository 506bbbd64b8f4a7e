#pragma once

#include "office/libreoffice/word/WriterModel.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::libreoffice {

/// The names of all bookmarks of a document, compared without regard to case, unlike in Writer.
class BookmarkNames {
  public:
    void take(const std::vector<std::string>& names);
    void add(const std::string& name);
    void remove(const std::string& name);

    /// Returns the name as the document has it; empty when there is no bookmark of that name.
    [[nodiscard]] std::string find(const std::string& name) const;

    [[nodiscard]] std::vector<std::string> all() const;

    /// Returns those that are not hidden, in name order.
    [[nodiscard]] std::vector<std::string> inNameOrder() const;

    /// Returns the smallest number n from 1 for which no bookmark is named stem followed by n.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    std::unordered_map<std::string, std::string> byFoldedName_;
    /// For each stem asked for, a number below which all counters are taken.
    std::unordered_map<std::string, std::int64_t> takenBelow_;
};

/// A bookmark as Writer has it, and the mark after its end that belongs to it in Word.
struct LiveBookmark {
    std::string name;
    RangeReference anchor;
    Beyond beyond = Beyond::Nothing;

    [[nodiscard]] TextPlace start() const { return {anchor->getStart(), Beyond::Nothing}; }
    [[nodiscard]] TextPlace end() const { return {anchor->getEnd(), beyond}; }
};

/// The bookmarks of a document by name. Writer's own object knows where each one is.
class LiveBookmarks {
  public:
    explicit LiveBookmarks(const WriterModel& model) : model_(model) {}

    /// Discards everything, since the user may have changed the document. The names are read again on demand.
    void forget() {
        forgetPlaces();
        beyond_.clear();
    }

    /// Discards the names and places after a step was undone.
    void forgetPlaces() {
        areNamesKnown_ = false;
        ++version_;
    }

    [[nodiscard]] BookmarkNames& names();

    /// Raises kObjectDeleted when there is no bookmark of that name.
    [[nodiscard]] LiveBookmark get(const std::string& name);

    /// Returns the bookmark of one of Writer's objects.
    [[nodiscard]] LiveBookmark of(const css::uno::Any& bookmark);

    /// Returns a number that changes whenever a bookmark may have moved.
    [[nodiscard]] std::int64_t version() const { return version_; }

    /// Returns the mark after the anchor's end that belongs to the bookmark.
    [[nodiscard]] Beyond beyondOf(const std::string& name, const RangeReference& anchor) const;

    /// Puts a bookmark over the range; an existing one of that name moves. Returns its anchor.
    RangeReference put(const std::string& name, const TrackedRange& range);

    void remove(const std::string& name);

  private:
    const WriterModel& model_;
    BookmarkNames names_;
    bool areNamesKnown_ = false;
    std::int64_t version_ = 0;
    /// For the bookmarks that were put here, the mark that Writer's do not keep.
    std::map<std::string, Beyond> beyond_;
};

/// Returns the anchor of one of Writer's bookmarks.
inline RangeReference anchorOf(const css::uno::Any& bookmark) {
    return Reference<css::text::XTextContent>(bookmark, UNO_QUERY_THROW)->getAnchor();
}

}  // namespace mergeloom::libreoffice
