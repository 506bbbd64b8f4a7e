#pragma once

#include "office/embedded/word/StoryPlace.h"
#include "office/model/word/Table.h"

#include <memory>
#include <vector>

namespace mergeloom::embedded {

/// A table, held by its element and by one of its row marks, from which its place is told.
class EmbeddedTable final : public word::Table, public std::enable_shared_from_this<EmbeddedTable> {
  public:
    EmbeddedTable(StoryPlace place, pugi::xml_node table, Item* rowMark)
        : place_(std::move(place)), table_(table), rowMark_(rowMark) {}

    word::RangePtr Range() override { return rangeOf(element()); }
    word::RowsPtr Rows() override;
    word::ColumnsPtr Columns() override;
    bool Uniform() override;
    void Select() override;
    void Delete() override;

    /// The table's element. Raises kObjectDeleted when the table is gone.
    [[nodiscard]] pugi::xml_node element() const;
    [[nodiscard]] const opc::WordNames& names() const { return place_.story->names(); }
    /// The range of a row or cell of the table, or of the table itself.
    word::RangePtr rangeOf(pugi::xml_node part) const;
    void appendRow();

  private:
    [[nodiscard]] CharacterRange charactersOf(pugi::xml_node part) const;

    StoryPlace place_;
    pugi::xml_node table_;
    Item* rowMark_;
};

/// A table, told from an item inside it.
std::shared_ptr<EmbeddedTable> makeTable(const StoryPlace& place, pugi::xml_node table, Item* inside);

}  // namespace mergeloom::embedded
