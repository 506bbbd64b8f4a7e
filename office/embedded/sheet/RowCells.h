#pragma once

#include "office/embedded/sheet/XmlScanner.h"

#include <string_view>

namespace mergeloom::embedded {

/// The cells of one row, one after the other.
class RowCells {
  public:
    /// The scanner stands on the row's start tag. The prefix is that of the elements' names, "x:" or empty.
    RowCells(XmlScanner& scanner, std::string_view prefix, int row);

    /// Goes to the next cell's tag; false behind the last one, where the scanner stands on the row's end tag.
    /// Raises BadXml for a cell that is none of this row, or not behind the one before it.
    bool next();
    [[nodiscard]] int column() const { return column_; }

  private:
    void readColumn();

    XmlScanner& scanner_;
    std::string_view prefix_;
    int row_;
    int column_ = 0;
    bool isOpen_;
};

}  // namespace mergeloom::embedded
