#pragma once

#include "office/graft/LineShift.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::graft {

/// Moves the references to the cells of one sheet in the parts of a workbook, except those in the cells.
class ReferenceMover {
  public:
    /// The arguments must outlive it.
    ReferenceMover(const LineShift& shift, const std::string& sheet) : shift_(shift), sheet_(sheet) {}

    /// Moves the references below the root of a part: those with the name of the sheet and, in a part of the
    /// sheet itself, also those without. Removes the elements whose cells were all removed. Raises Refusal
    /// for a comment on such a cell.
    void moveAll(pugi::xml_node root, bool isOfSheet) { (void)move(root, isOfSheet); }
    void moveFormula(pugi::xml_node node, bool isOfSheet);

    /// Returns true if a reference was moved or setChanged was called.
    [[nodiscard]] bool isChanged() const { return isChanged_; }
    void setChanged() { isChanged_ = true; }

  private:
    bool move(pugi::xml_node node, bool isOfSheet);
    bool moveChildren(pugi::xml_node node, bool isOfSheet);
    bool moveReferences(pugi::xml_node node, std::string_view name);
    bool moveAreas(pugi::xml_node node, std::string_view name);
    bool moveCell(pugi::xml_node node);
    bool moveBreak(pugi::xml_node node);
    bool moveColumns(pugi::xml_node node);
    void moveAnchor(pugi::xml_node from);
    void moveNote(pugi::xml_node node);
    [[nodiscard]] int movedFromZero(int line) const;
    void set(pugi::xml_attribute attribute, const std::string& value);
    void setText(pugi::xml_node node, const std::string& text);

    const LineShift& shift_;
    const std::string& sheet_;
    bool isChanged_ = false;
};

}  // namespace mergeloom::graft
