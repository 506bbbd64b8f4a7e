#include "office/embedded/letters/MergedRows.h"

#include "office/embedded/text/TableEditor.h"

#include <set>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// Follows the vertical merges that start in rows (ECMA-376 Part 1, 17.4.84).
class MergeFollower {
  public:
    explicit MergeFollower(const opc::WordNames& names) : names_(names) {}

    void take(pugi::xml_node row) {
        std::set<int> open;
        visit(row, [&](int column, Merge merge) {
            const bool isOpen =
                merge == Merge::Start || (merge == Merge::Continued && open_.contains(column));
            if (isOpen) open.insert(column);
        });
        open_ = open;
    }

    [[nodiscard]] bool isContinuedIn(pugi::xml_node row) const {
        bool isContinued = false;
        visit(row, [&](int column, Merge merge) {
            isContinued = isContinued || (merge == Merge::Continued && open_.contains(column));
        });
        return isContinued;
    }

  private:
    enum class Merge { None, Start, Continued };

    [[nodiscard]] Merge mergeOf(pugi::xml_node cell) const {
        const pugi::xml_node properties = cell.child(names_.element("tcPr").c_str());
        const pugi::xml_node merge = properties.child(names_.element("vMerge").c_str());
        if (!merge) return Merge::None;
        return std::string_view(names_.value(merge, "val")) == "restart" ? Merge::Start : Merge::Continued;
    }

    template <typename Visitor>
    void visit(pugi::xml_node row, Visitor visitor) const {
        const pugi::xml_node before =
            row.child(names_.element("trPr").c_str()).child(names_.element("gridBefore").c_str());
        int column = before.attribute(names_.attribute("val").c_str()).as_int(0);
        for (const pugi::xml_node cell : cellsOf(row, names_)) {
            visitor(column, mergeOf(cell));
            column += columnsOf(cell, names_);
        }
    }

    const opc::WordNames& names_;
    std::set<int> open_;  ///< the columns of the grid at which the open merges begin
};

}  // namespace

std::size_t lastMergedRow(const std::vector<pugi::xml_node>& rows, std::size_t first, std::size_t last,
                          const opc::WordNames& names) {
    MergeFollower merges(names);
    for (std::size_t number = first; number < rows.size(); ++number) {
        if (number > last && !merges.isContinuedIn(rows[number])) return number - 1;
        merges.take(rows[number]);
    }
    return rows.size() - 1;
}

}  // namespace mergeloom::embedded
