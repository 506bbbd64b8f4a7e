#pragma once

#include "describe/Database.h"
#include "describe/ViewSelection.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// Translates the views of a database, which may select from other views. Each is translated once, when it is
/// needed.
class NestedViews {
  public:
    /// The tables must outlive it and stay as they are.
    explicit NestedViews(const std::vector<Table>& tables) : tables_(tables) {}

    /// Returns true if the rows of a table or view can be selected.
    [[nodiscard]] bool canSelect(const Table& table);
    /// Returns none for a view whose rows cannot be selected here: also for one that shows itself, directly
    /// or through other views, and for one that is nested deeper than Access allows.
    [[nodiscard]] const std::optional<ViewSelection>& selectionOf(const Table& view);

  private:
    struct Translation {
        std::optional<ViewSelection> selection{};
        int depth = 1;  ///< the number of views from this one to the tables
    };

    const Translation& translationOf(const Table& view);

    const std::vector<Table>& tables_;
    std::map<std::string, Translation> translations_{};
    int open_ = 0;  ///< the number of views that are being translated
};

}  // namespace mergeloom::describe
