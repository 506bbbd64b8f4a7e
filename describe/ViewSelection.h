#pragma once

#include "describe/Database.h"
#include "describe/ViewDefinition.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A view as a statement of SQLite over copies of its tables, which may be views themselves.
class ViewSelection {
  public:
    /// Returns true if the rows of a table or view can be selected.
    using SourceTest = std::function<bool(const Table& source)>;

    /// Returns none for a view whose rows may differ from those that Access selects.
    static std::optional<ViewSelection> translate(const ViewDefinition& view,
                                                  const std::vector<Table>& tables,
                                                  const SourceTest& canSelect);

    /// Returns the columns of tables that the statement needs.
    [[nodiscard]] const std::map<std::string, std::set<std::string>>& neededColumns() const {
        return needed_;
    }
    /// Returns the statement, which selects the columns of the view, with the names of the copies.
    [[nodiscard]] std::string statement(
        const std::function<std::string(const std::string& table)>& nameOf) const;

  private:
    class Builder;

    ViewSelection() = default;

    std::vector<std::string> tables_;  ///< s0, s1 and so on in the texts
    std::map<std::string, std::set<std::string>> needed_;
    std::string outputs_;
    std::string joinCondition_;  ///< of a left join; otherwise the joins are conditions
    std::string end_;
};

}  // namespace mergeloom::describe
