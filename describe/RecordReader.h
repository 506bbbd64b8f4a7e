#pragma once

#include "describe/ObjectDesign.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace mergeloom::describe {

/// Reads the records of an object, each with those of its subforms, which are read beside it: the rows of all
/// tables are in the order of the object's records, so that no record is kept.
class RecordReader {
  public:
    /// The database and the object must outlive it. Raises kFileCouldNotBeRead.
    RecordReader(Database& database, const ObjectDesign& object, const std::optional<RowFilter>& filter);

    [[nodiscard]] const ObjectDesign& object() const { return object_; }

    /// Moves to the next record, at first to the first one. Returns false after the last one. Raises
    /// kFileCouldNotBeRead, also if the rows of subforms are left over, which belong to no record.
    bool next();
    /// Moves to the next record that belongs to the current one of the reader around it.
    bool nextOf(const RecordReader& around);

    /// Return a value of a control, and the value that is shown in its place if it has a lookup.
    [[nodiscard]] Value value(std::size_t control) const { return cursor_->value(control); }
    [[nodiscard]] Value shownValue(std::size_t control) const;
    [[nodiscard]] std::vector<std::unique_ptr<RecordReader>>& subforms() { return subforms_; }

  private:
    RecordReader(Database& database, const ObjectDesign& object, const std::optional<RowFilter>& filter,
                 const std::vector<Join>& joins);

    bool step();
    [[nodiscard]] bool belongsTo(const RecordReader& around) const;
    void refuseLeftOver();

    const ObjectDesign& object_;
    std::unique_ptr<Cursor> cursor_;
    std::vector<std::optional<std::size_t>> shown_;  ///< the positions of the values of lookups
    std::size_t keys_ = 0;                           ///< the position of the first key of the row
    std::size_t outerKeys_ = 0;                      ///< the number of values in the keys around
    std::vector<std::unique_ptr<RecordReader>> subforms_;
    bool isPending_ = false;  ///< the current row was read but not yet asked for
    bool isAtEnd_ = false;
};

}  // namespace mergeloom::describe
