#pragma once

#include "office/model/excel/Forward.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom {

/// The places of one cell before a drop.
struct PlacesOfCell {
    std::vector<std::string> names{};
    bool isShownByText = false;
};

/// The places that a workbook had before a drop. A cell that gets a place loses its former one, since both
/// would be filled into it.
class FormerPlaces {
  public:
    /// Lists the workbook's places, so it must be constructed before the drop adds any.
    explicit FormerPlaces(excel::Workbook& workbook);

    /// Returns the names that refer to the cell alone and whose text in brackets or picture it shows. If the
    /// user wrote another text into the cell, its name may be needed for that.
    [[nodiscard]] PlacesOfCell on(excel::Range& cell);

  private:
    using NamesByKey = std::unordered_multimap<std::string, std::string>;

    [[nodiscard]] const NamesByKey& picturesOf(excel::Worksheet& sheet);

    excel::Workbook& workbook_;
    NamesByKey names_;  ///< by the whole name and by the name without its counter, case folded
    std::unordered_map<std::string, NamesByKey> pictures_;  ///< by the sheet's name and the cell's address
};

enum class NewPlace { Text, Picture };

/// Removes former places from a cell that gets a new one: names, pictures, and a text in brackets that the
/// new picture would cover.
void removePlaces(excel::Workbook& workbook, excel::Range& cell, const PlacesOfCell& former, NewPlace place);

}  // namespace mergeloom
