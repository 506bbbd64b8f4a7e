#pragma once

#include "base/Units.h"
#include "office/embedded/sheet/StyleSheet.h"
#include "office/embedded/sheet/XmlAttributes.h"

#include <map>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// Converts between the three measures of a column's width: pixels, the file's width and the width that Excel
/// shows. All depend on the digits of the workbook's default font (ECMA-376 Part 1, 18.3.1.13).
class ColumnUnits {
  public:
    explicit ColumnUnits(const CellFont& defaultFont);

    /// Returns the pixels of a column that its text cannot use: two margins and the grid line.
    [[nodiscard]] int padding() const { return padding_; }
    /// Returns the width of a column if neither the sheet nor the column specifies one.
    [[nodiscard]] int defaultPixels(int baseCharacters) const;
    [[nodiscard]] int widestPixels() const;

    [[nodiscard]] int pixelsOfFileWidth(double width) const;
    [[nodiscard]] double fileWidthOf(int pixels) const;
    [[nodiscard]] int pixelsOf(ColumnWidth width) const;
    /// Returns the width as Excel shows it, rounded to two decimals.
    [[nodiscard]] ColumnWidth shownWidthOf(int pixels) const;

  private:
    int digit_;
    int padding_;
};

/// The definition of one or more adjacent columns (ECMA-376 Part 1, 18.3.1.13).
struct ColumnDefinition {
    int first = 0;
    int last = 0;
    XmlTag tag;  ///< its attributes min and max are not kept up to date
};

/// The definitions of a sheet's columns. Of overlapping definitions, which no valid sheet has, the last one
/// applies.
class ColumnDefinitions {
  public:
    /// Takes the XML of the section "cols", which may be empty, and the names of its elements.
    ColumnDefinitions(const std::string& xml, std::string listName, std::string elementName);

    [[nodiscard]] std::optional<ColumnDefinition> find(int column) const;
    /// Returns the definitions by their last columns.
    [[nodiscard]] const std::map<int, ColumnDefinition>& all() const { return definitions_; }
    /// Returns an empty definition for a column that has none yet.
    [[nodiscard]] ColumnDefinition newDefinition(int column) const;

    /// Replaces the definitions of its columns. A definition that also covers other columns is split.
    void put(const ColumnDefinition& definition);
    void erase(int first, int last);

    /// Returns the section "cols"; an empty text if there are no definitions.
    [[nodiscard]] std::string toXml() const;

  private:
    void add(int first, int last, const XmlTag& tag);

    std::string listName_;
    std::string elementName_;
    std::map<int, ColumnDefinition> definitions_;
};

}  // namespace mergeloom::embedded
