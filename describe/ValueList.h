#pragma once

#include "describe/Database.h"
#include "describe/ValueFormat.h"

#include <map>
#include <string>

namespace mergeloom::describe {

/// The texts that a list of values shows in place of the stored values.
class ValueList {
  public:
    ValueList() = default;
    /// Has no texts for a list of rows, and for one that shows the stored values.
    explicit ValueList(const ListSource& list);

    [[nodiscard]] bool isEmpty() const { return texts_.empty(); }
    /// Returns the text for a value of a type, or null if the list does not contain the value.
    [[nodiscard]] const std::string* shownFor(const ValueText& value, ColumnType type) const;

  private:
    std::map<std::string, std::string> texts_{};  ///< by stored values in folded case
};

}  // namespace mergeloom::describe
