#pragma once

#include "office/libreoffice/word/LiveBookmarks.h"

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::libreoffice {

/// Finds the bookmarks at a place without looking at all of them.
///
/// Writer lists bookmarks by the places where they start. Of those that end before the next one starts, only
/// the last ones before a place can reach it; the others, mostly those over tables, are known as wide ones
/// and looked at each time, as are those of other stories for a place there. Where no bookmark was found, the
/// gap between its neighbours is remembered: what is typed there meets none.
class BookmarkFinder {
  public:
    BookmarkFinder(const WriterModel& model, LiveBookmarks& bookmarks)
        : model_(model), bookmarks_(bookmarks) {}

    /// Forgets all bookmarks, which the user may have changed.
    void forget();

    /// Forgets the gap: bookmarks were moved or deleted, or a text with bookmarks in it was.
    void forgetGap() { gap_.reset(); }

    /// Returns the bookmarks that the range holds or overlaps, and for a caret those that contain or touch
    /// it, in place order.
    std::vector<LiveBookmark> touching(const TrackedRange& range);

    /// Puts a bookmark over the range; see LiveBookmarks.
    void put(const std::string& name, const TrackedRange& range);

  private:
    struct Question;
    struct Bound {
        RangeReference anchor;
        bool isStart = false;  ///< of the anchor, else its end
    };
    /// Between its bounds no bookmark starts or ends.
    struct Gap {
        std::optional<Bound> low;
        std::optional<Bound> high;
        std::optional<LiveBookmark> atLow;  ///< a caret at the low bound touches it
        TableReference tableBefore;         ///< a caret right after it touches its bookmark
        std::vector<LiveBookmark> around;   ///< those that reach over the whole gap
    };
    enum class Relation { Before, Touching, After };
    enum class Reach { Itself, Others, OtherStory };

    void learn();
    [[nodiscard]] Reach reachOf(const RangeReference& anchor, const RangeReference& next) const;
    std::vector<LiveBookmark> search(Question& question);
    [[nodiscard]] sal_Int32 firstAfter(const Question& question) const;
    void searchBackwards(Question& question, sal_Int32 index);
    void searchWide(Question& question);
    void take(Question& question, LiveBookmark bookmark);
    void narrow(Question& question, const LiveBookmark& bookmark, Relation relation);
    void narrowLow(Question& question, const Bound& bound) const;
    void narrowHigh(Question& question, const Bound& bound) const;
    Relation relationOf(Question& question, LiveBookmark& bookmark);
    [[nodiscard]] int lowAgainst(const TrackedRange& range) const;
    [[nodiscard]] bool isInGap(const TrackedRange& range, int low) const;
    [[nodiscard]] std::optional<std::vector<LiveBookmark>> inGap(const TrackedRange& range) const;
    void putOuterAgain(const TrackedRange& range, const std::vector<LiveBookmark>& met);
    void noteWide(const std::string& name, const TrackedRange& range, const std::vector<LiveBookmark>& met);

    const WriterModel& model_;
    LiveBookmarks& bookmarks_;
    bool isLearnt_ = false;
    std::set<std::string> wide_;
    std::set<std::string> elsewhere_;  ///< in other stories than the body
    /// For a bookmark the next one, before which it was seen to end. Text that comes and goes keeps that
    /// true.
    std::unordered_map<std::string, std::string> apart_;
    std::optional<Gap> gap_;
};

}  // namespace mergeloom::libreoffice
