#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

struct CellFont {
    std::string name = "Calibri";
    double size = 11;  ///< in points
    bool bold = false;
    bool italic = false;
};

/// The parts of the workbook's styles that the engine needs (ECMA-376 Part 1, 18.8); it never changes them.
class StyleSheet {
  public:
    /// Creates the styles of a workbook without a styles part: everything has the defaults.
    StyleSheet() = default;
    /// Raises kFileCouldNotBeRead, with a sentence that names file and part, if the part is malformed.
    StyleSheet(std::string_view xml, const std::string& partName, const std::string& fileName);

    /// Returns the font of the style "Normal", whose digits are the unit of column widths.
    [[nodiscard]] const CellFont& defaultFont() const { return defaultFont_; }
    /// Returns the font of a cell format; the default one for an index without a format.
    [[nodiscard]] const CellFont& fontOf(int style) const;
    /// Returns true if cells of that format are locked on a protected sheet, which is the default.
    [[nodiscard]] bool isLocked(int style) const;
    /// Returns true if the text is wrapped, rotated or shrunk to fit; AutoFit ignores such cells.
    [[nodiscard]] bool skipsAutoFit(int style) const;

  private:
    struct CellFormat {
        CellFont font;
        bool locked = true;
        bool skipsAutoFit = false;
    };

    /// Returns null for an index without a format.
    [[nodiscard]] const CellFormat* formatOf(int style) const;

    CellFont defaultFont_;
    std::vector<CellFormat> formats_;
};

}  // namespace mergeloom::embedded
