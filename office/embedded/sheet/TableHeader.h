#pragma once

#include "office/embedded/sheet/PartState.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::embedded {

/// The header cells of one table and the names of its columns (ECMA-376 Part 1, 18.5.1.3). A table without a
/// header row has no header cells.
class TableHeader {
  public:
    /// The log must outlive the header.
    TableHeader(std::unique_ptr<opc::XmlPart> part, UndoLog& undo);

    [[nodiscard]] bool contains(const excel::CellPosition& cell) const;
    /// The text that a header cell can get so that all columns keep names of their own.
    [[nodiscard]] std::string allowedText(const excel::CellPosition& cell, const std::string& text) const;
    void rename(const excel::CellPosition& cell, const std::string& text);

    [[nodiscard]] const opc::XmlPart& part() const { return *part_; }
    [[nodiscard]] bool isDirty() const { return state_.isDirty(); }
    void setStored() { state_.setStored(); }

  private:
    void readColumns();
    [[nodiscard]] pugi::xml_node columnAt(const excel::CellPosition& cell) const;
    [[nodiscard]] bool isTaken(const std::string& name, pugi::xml_node besides) const;

    std::unique_ptr<opc::XmlPart> part_;
    PartState state_;
    excel::CellPosition first_{};
    std::vector<pugi::xml_node> columns_;
    std::unordered_map<std::string, int> names_;  ///< how many columns have a name, by the folded name
};

}  // namespace mergeloom::embedded
