#pragma once

#include "office/embedded/letters/Piece.h"
#include "office/embedded/letters/PlaceMarker.h"
#include "office/model/letters/PlaceSource.h"
#include "office/opc/WordNames.h"

#include <cstddef>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mergeloom::embedded {

/// A bookmark of a part. The end is empty if the part has none.
struct PartBookmark {
    std::string name;
    pugi::xml_node start;
    pugi::xml_node end;
};

/// Rows of a table that are repeated for each record of a subform.
struct RowPattern {
    letters::ControlPath path;
    std::vector<pugi::xml_node> rows{};  ///< siblings
    WithoutRecords withoutRecords = WithoutRecords::RemoveRows;
    pugi::xml_node markedTable{};  ///< the table, if a bookmark marks it
    pugi::xml_node tableEnd{};     ///< the last node that goes with the table: itself, or the bookmark's end
    std::string marksAcross{};     ///< what remains of the rows without records
    std::string rowsXml{};         ///< the rows, without those marks
    std::string tableXml{};        ///< the marked table
};

/// Decides if rows with places of a subform are repeated in tables that no bookmark marks.
enum class UnmarkedTables { Repeat, Ignore };

/// Returns true if a node is in one of several siblings.
bool isInSiblings(pugi::xml_node node, pugi::xml_node first, pugi::xml_node last);

/// Finds the pattern rows of a part. In a table that a bookmark marks, they are the rows from the first to
/// the last with a place of the subform; in other tables, those that contain its places directly.
class RowPatternFinder {
  public:
    RowPatternFinder(pugi::xml_node root, const MarkedPlaces& marked,
                     const std::vector<PartBookmark>& bookmarks);

    void addPlace(pugi::xml_node node, std::size_t number);
    /// Returns the patterns, those of outer subforms before those of inner ones.
    std::vector<RowPattern> find(UnmarkedTables unmarked);

    [[nodiscard]] const std::vector<std::string>& refusals() const { return refusals_; }
    /// Returns the paths of the subforms whose table has no place of them.
    [[nodiscard]] const std::set<letters::ControlPath>& tablesWithoutRows() const {
        return tablesWithoutRows_;
    }

  private:
    struct Place {
        pugi::xml_node node;
        const letters::ControlPath* path;
    };

    enum class Added { Yes, No, NotSiblings };

    void number(pugi::xml_node node);
    void findMarked(const MarkedTable& marked);
    void addMarked(const MarkedTable& marked, const PartBookmark& bookmark, pugi::xml_node table);
    void findUnmarked(const letters::ControlPath& path);
    void addUnmarked(const letters::ControlPath& path, pugi::xml_node table);
    /// Adds a pattern of the rows with the given numbers, unless it would cross another one.
    Added add(RowPattern pattern, const std::vector<pugi::xml_node>& rows, std::size_t first,
              std::size_t last);
    [[nodiscard]] std::vector<pugi::xml_node> tablesOf(const PartBookmark& bookmark,
                                                       const letters::ControlPath& path) const;
    [[nodiscard]] std::vector<pugi::xml_node> tablesBetween(const PartBookmark& bookmark) const;
    [[nodiscard]] pugi::xml_node cellIn(pugi::xml_node table, pugi::xml_node node) const;
    [[nodiscard]] pugi::xml_node rowIn(pugi::xml_node table, pugi::xml_node node) const;
    [[nodiscard]] std::vector<letters::ControlPath> subforms() const;
    [[nodiscard]] bool hasPlaceOf(pugi::xml_node row, const letters::ControlPath& path) const;
    [[nodiscard]] bool isRepeated(pugi::xml_node node, const letters::ControlPath& path) const;
    [[nodiscard]] bool crossesAnother(const RowPattern& pattern) const;

    opc::WordNames names_;
    const MarkedPlaces& marked_;
    const std::vector<PartBookmark>& bookmarks_;
    std::vector<Place> places_;
    /// The paths of the places in each row, at any depth.
    std::unordered_map<std::size_t, std::set<letters::ControlPath>> placesByRow_;
    std::vector<pugi::xml_node> tables_;                   ///< in the order of the document
    std::unordered_map<std::size_t, std::size_t> orders_;  ///< of tables and marks in the document
    std::vector<RowPattern> patterns_;
    std::unordered_map<std::size_t, std::vector<std::size_t>> patternsByRow_;
    std::vector<std::string> refusals_;
    std::set<letters::ControlPath> tablesWithoutRows_;
};

}  // namespace mergeloom::embedded
