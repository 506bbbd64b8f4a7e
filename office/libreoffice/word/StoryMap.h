#pragma once

#include "office/libreoffice/word/LiveStretch.h"
#include "office/libreoffice/word/MappedTable.h"
#include "office/libreoffice/word/MarkRecord.h"
#include "office/libreoffice/word/TextObject.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace mergeloom::libreoffice {

using TablePtr = std::shared_ptr<MappedTable>;

/// One of Writer's texts: a cell, or without a table the story's own text.
struct TextKey {
    TablePtr table;
    CellPlace cell;

    friend bool operator==(const TextKey&, const TextKey&) = default;  // NOLINT
};

/// Where a position lies for Writer: how many steps of a cursor from the start of one of its texts.
struct TextPlace {
    TextKey text;
    std::int64_t steps = 0;
};

/// What is known of a story's positions without asking Writer: its tables, bookmarks, objects and live
/// stretches, and how edits move them. Word counts the positions of a story through all its tables, and in
/// UTF-16 code units; for Writer each cell is a text of its own, a table takes no step of a cursor, and a
/// character is one step however many units it has.
class StoryMap {
  public:
    [[nodiscard]] CharacterCount length() const { return length_; }
    void setLength(CharacterCount length) { length_ = length; }

    [[nodiscard]] TextPlace placeOf(CharacterPosition position) const;
    /// The places right behind the tables that stand in the text itself, in order.
    [[nodiscard]] std::vector<std::int64_t> stepsBehindTables(const TextKey& text) const;
    /// How many steps a stretch takes that holds no table.
    [[nodiscard]] std::int64_t stepsOver(Stretch stretch) const;
    /// Says that the character that begins there has two units.
    void addPair(CharacterPosition position);
    /// In place order, an outer table before those inside it.
    [[nodiscard]] const std::vector<TablePtr>& tables() const { return tables_; }
    /// The innermost table that holds the position, or none.
    [[nodiscard]] TablePtr tableAt(CharacterPosition position) const;
    /// The innermost table that holds both ends of the stretch, or none.
    [[nodiscard]] TablePtr tableAround(Stretch stretch) const;
    [[nodiscard]] TablePtr tableNamed(const std::string& name) const;
    /// Takes in a table that stands there already. The tables before it and around it are known.
    void addTable(const TablePtr& table);

    [[nodiscard]] const std::vector<MarkPtr>& marks() const { return marks_; }
    void addMark(const MarkPtr& mark) { marks_.push_back(mark); }
    void removeMark(const MarkPtr& mark) { std::erase(marks_, mark); }
    /// The bookmarks that the stretch holds, overlaps or, being a caret, stands in or touches, in place
    /// order.
    [[nodiscard]] std::vector<MarkPtr> marksIn(Stretch stretch) const;
    /// The bookmarks all of whose text the stretch covers.
    [[nodiscard]] std::vector<MarkPtr> marksCoveredBy(Stretch stretch) const;
    /// The stretch as Writer can mark it: without the marks of cells and rows at its end, and without the
    /// story's last mark.
    [[nodiscard]] Stretch inWriter(Stretch stretch) const;

    void addObject(const ObjectPtr& object) { objects_.push_back(object); }
    /// Forgets the object, whose characters may stay; it is gone then.
    void removeObject(const ObjectPtr& object);
    /// The objects of a kind that begin in the stretch, in place order, an outer one before those inside it.
    [[nodiscard]] std::vector<ObjectPtr> objectsIn(Stretch stretch, ObjectKind kind) const;

    void watch(const std::shared_ptr<LiveStretch>& stretch) { stretches_.push_back(stretch); }

    /// The changes that were made in Writer. Text stays within one of its texts.
    void insertText(CharacterPosition position, CharacterCount count);
    void removeText(Stretch stretch);
    void insertTable(const TablePtr& table);
    void appendRow(MappedTable& table, MappedRow row);
    void removeTable(const TablePtr& table);

    /// What was known at some time; ranges that live are kept within the story.
    struct State;
    [[nodiscard]] std::shared_ptr<const State> state() const;
    void restore(const State& state);
    /// Forgets all but the live stretches; what it held is gone then.
    void clear();

  private:
    void moveStretches(const auto& moved);
    void insertAmongObjects(CharacterPosition position, CharacterCount count);
    void removeFromObjects(Stretch stretch);
    void insertAmongPairs(CharacterPosition position, CharacterCount count);
    [[nodiscard]] CharacterPosition startOf(const TextKey& text) const;
    [[nodiscard]] std::vector<TablePtr> tablesIn(const TextKey& text) const;

    CharacterCount length_{1};
    std::vector<TablePtr> tables_;
    std::vector<MarkPtr> marks_;
    std::vector<ObjectPtr> objects_;
    std::vector<CharacterPosition> pairs_;  ///< in order
    std::vector<std::weak_ptr<LiveStretch>> stretches_;
};

}  // namespace mergeloom::libreoffice
