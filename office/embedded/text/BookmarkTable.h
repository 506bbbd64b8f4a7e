#pragma once

#include "office/embedded/text/ItemBlock.h"
#include "office/model/FreeNumbers.h"
#include "office/model/word/BookmarkName.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::opc {
class XmlPart;
}

namespace mergeloom::embedded {

class Story;

/// A bookmark of the document: its name as written, its id and the marks at which it starts and ends. The
/// marks are items of their story, so the bookmark moves with the text without being changed.
struct BookmarkRecord {
    std::string name;
    std::int64_t id = 0;
    Story* story = nullptr;
    Item* start = nullptr;
    Item* end = nullptr;
    std::uint32_t number = 0;  ///< the index among the table's records
    bool listed = false;       ///< in the table; false once the bookmark is deleted

    /// Returns true if Word leaves the bookmark out of its collections, though it is found by name.
    [[nodiscard]] bool isHidden() const { return word::isHiddenBookmark(name); }
};

/// A mark in the fallback branch of a text box, which repeats the text box for programs that cannot show it
/// (ECMA-376 Part 3, 10.2.3). It has the name and id of the real mark and is removed with it.
struct BookmarkCopy {
    std::string name;  ///< of a start; an end has none
    std::string id;
    opc::XmlPart* part = nullptr;
    pugi::xml_node node;
};

/// The bookmarks of a document over all its stories: one name space that does not regard letter case
/// (ECMA-376 Part 1, 17.13.6.2).
class BookmarkTable {
  public:
    /// Makes a record that is not listed yet; it lives as long as the table.
    BookmarkRecord& create(std::string name, std::int64_t id, Story& story);

    /// Lists a record; no other listed record may have its name.
    void list(BookmarkRecord& record);
    void unlist(BookmarkRecord& record);

    [[nodiscard]] BookmarkRecord* find(std::string_view name);
    /// Returns the records that are not hidden, in name order.
    [[nodiscard]] const std::vector<BookmarkRecord*>& inNameOrder();
    /// Returns all bookmarks in the same order, also hidden ones.
    [[nodiscard]] std::vector<BookmarkRecord*> withHidden();

    /// Returns the smallest number n from 1 for which no record is named stem followed by n.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

    void addCopy(BookmarkCopy copy) { copies_.push_back(std::move(copy)); }
    /// Returns the marks in fallback branches that repeat a bookmark.
    [[nodiscard]] std::vector<BookmarkCopy> copiesOf(const BookmarkRecord& record) const;

  private:
    /// A slot of the index of names: the number of a record and the hash of its folded name.
    struct Slot {
        static constexpr std::uint32_t kEmpty = 0xFFFFFFFF;
        static constexpr std::uint32_t kErased = 0xFFFFFFFE;

        std::uint32_t hash = 0;
        std::uint32_t record = kEmpty;

        [[nodiscard]] bool isUsed() const { return record < kErased; }
    };

    [[nodiscard]] std::size_t slotAfter(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }
    void insertSlot(const Slot& added);
    /// Grows the index before another name is added, so that at least a quarter of the slots is empty.
    void growSlots();

    std::deque<BookmarkRecord> records_;
    std::vector<BookmarkCopy> copies_;
    // Linear probing in a table whose size is a power of two. A lookup usually reads one cache line, where a
    // table of nodes needs three.
    std::vector<Slot> slots_;
    std::size_t filledSlots_ = 0;  // used or erased
    std::vector<BookmarkRecord*> ordered_;
    bool orderIsStale_ = false;
    model::FreeNumbers counters_;
};

}  // namespace mergeloom::embedded
