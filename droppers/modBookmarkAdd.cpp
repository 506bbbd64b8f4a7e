#include "droppers/modBookmarkAdd.h"

#include "base/Text.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/SelectionCheck.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"
#include "xml/modNamedItems.h"

namespace mergeloom {

namespace {

constexpr const char* kBookmarkModule = "modBookmarkAdd";

/// The guard characters at the two sides of a new place, empty where no other bookmark touches it.
struct Guards {
    std::string leading;
    std::string trailing;
};

/// Returns true for the bookmark of the table that contains the range: a cell before the range does not touch
/// it.
bool isTableAround(word::Bookmark& bookmark, word::Range& range) {
    const word::RangePtr marked = bookmark.Range();
    return marked->compare(word::RangeEnd::End, range, word::RangeEnd::Start) > 0 &&
           coversSeveralCells(*marked);
}

/// Finds the bookmarks that touch the range. Returns false when a field is there.
bool findTouching(word::Range& range, TouchingBookmarks& touching) {
    const word::BookmarksPtr bookmarks = range.Bookmarks();
    const int count = bookmarks->Count();
    if (count == 0 || cellCount(range) >= 2) return true;

    for (int number = 1; number <= count; ++number) {
        const word::BookmarkPtr bookmark = bookmarks->Item(number);
        const word::RangePtr marked = bookmark->Range();
        if (coversSeveralCells(*marked)) continue;
        if (marked->compare(word::RangeEnd::Start, range, word::RangeEnd::Start) == 0) {
            touching.atStart = bookmark;
        } else if (isField(*bookmark)) {
            return false;
        }
    }
    const word::RangePtr previous = range.Previous(word::WdUnits::wdCharacter, 1);
    if (!previous) return true;
    const word::BookmarksPtr onPrevious = previous->Bookmarks();
    if (onPrevious->Count() != 1) return true;
    const word::BookmarkPtr before = onPrevious->Item(1);
    if (!isTableAround(*before, range)) touching.before = before;
    return true;
}

letters::ValueKind valueOf(const PlaceContent& content) {
    return content.vfBoundValueUse ? letters::ValueKind::Bound : letters::ValueKind::Display;
}

Guards guardsAgainst(const TouchingBookmarks& touching) {
    Guards guards;
    if (touching.before) guards.leading = ZeroWidthJoiner();
    if (touching.atStart) guards.trailing = ZeroWidthJoiner();
    return guards;
}

void writePicture(word::Range& range, const std::string& pictureFile) {
    range.SetText(" ");
    range.InlineShapes()->AddPicture(pictureFile);
}

void writeText(word::Range& range, const std::string& placeholder, const Guards& guards) {
    const bool isEmpty = range.isEmpty();
    // Writing a range's own text back would lose its formatting and its pictures.
    if (!isEmpty && guards.leading.empty() && guards.trailing.empty()) return;
    range.SetText(guards.leading + (isEmpty ? placeholder : range.Text()) + guards.trailing);
}

/// Moves a bookmark's start after a text that was written at its start. A bookmark whose text was replaced no
/// longer exists.
void moveStartAfter(word::Document& document, const std::string& bookmarkName, CharacterCount length) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    if (!bookmarks->Exists(bookmarkName)) return;
    const word::BookmarkPtr bookmark = bookmarks->Item(bookmarkName);
    bookmark->moveStart(length);
}

/// Writes the text or picture of the place and returns the guards around it.
Guards fillRange(word::Document& document, word::Range& range, const TouchingBookmarks& touching,
                 const std::string& name, const PlaceContent& content) {
    if (coversSeveralCells(range)) return {};
    if (!content.vstrPictureFile.empty()) {
        writePicture(range, content.vstrPictureFile);
        return {};
    }
    Guards guards = guardsAgainst(touching);
    const std::string atStart = touching.atStart ? touching.atStart->Name() : "";
    writeText(range, content.vstrText.empty() ? name : content.vstrText, guards);
    if (!atStart.empty()) moveStartAfter(document, atStart, utf16Length(range.Text()));
    return guards;
}

/// Returns the bookmark's name for a name, or the first of its further names that no bookmark of the document
/// has.
std::string freeName(word::Bookmarks& bookmarks, const std::string& name) {
    const FurtherPlaceNames names{bookmarks, name, WordNormalizeName};
    return names.usable(names.firstFreeCounter());
}

void leaveOut(word::Bookmark& bookmark, const Guards& guards) {
    if (!guards.leading.empty()) bookmark.moveStart(utf16Length(guards.leading));
    if (!guards.trailing.empty()) bookmark.moveEnd({-utf16Length(guards.trailing).value});
}

}  // namespace

bool isField(word::Bookmark& bookmark) {
    return equalsIgnoringCase(bookmark.Range()->Text(), bookmark.Name());
}

bool ValidateBookmark(DropReports& reports, word::Range& robjRange, TouchingBookmarks& touching) {
    return reports.trap({kBookmarkModule, "ValidateBookmark"}, [&] {
        if (findTouching(robjRange, touching)) return true;
        return reports.refuse("Do not drop fields on top of existing fields.");
    });
}

word::BookmarkPtr rWordBookmarkAdd(DropReports& reports, word::Document& robjDocument, word::Range& robjRange,
                                   std::string& rstrName, const PlaceContent& content) {
    TouchingBookmarks touching;
    if (!ValidateBookmark(reports, robjRange, touching)) return {};

    word::BookmarkPtr added;
    std::string candidate;
    const auto comment = [&] { return "Bookmark Name = '" + candidate + "'"; };
    const auto add = [&] {
        const Guards guards = fillRange(robjDocument, robjRange, touching, rstrName, content);
        rstrName = placeName(content.vstrPrefix, rstrName, valueOf(content));
        const word::BookmarksPtr bookmarks = robjDocument.Bookmarks();
        candidate = freeName(*bookmarks, rstrName);
        added = bookmarks->Add(candidate, robjRange);
        leaveOut(*added, guards);
        return true;
    };
    reports.trap({kBookmarkModule, "rWordBookmarkAdd"}, add, comment);
    return added;
}

}  // namespace mergeloom
