#pragma once

#include "office/embedded/sheet/StyleSheet.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/model/excel/ColumnUnits.h"

#include <map>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// Converts between the three measures of a column's width: pixels, the width that Excel shows, and the
/// file's width.
class FileColumnUnits : public excel::ColumnUnits {
  public:
    explicit FileColumnUnits(const CellFont& defaultFont);

    /// Returns the width of a column if neither the sheet nor the column specifies one.
    [[nodiscard]] int defaultPixels(int baseCharacters) const;
    [[nodiscard]] int widestPixels() const;

    [[nodiscard]] int pixelsOfFileWidth(double width) const;
    [[nodiscard]] double fileWidthOf(int pixels) const;
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
