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

/// What the engine asks of the workbook's styles (ECMA-376 Part 1, 18.8); it never changes them.
class StyleSheet {
  public:
    /// Without a styles part everything has the defaults.
    StyleSheet() = default;
    /// Raises kFileCouldNotBeRead, with a sentence that names file and part, when it is malformed.
    StyleSheet(std::string_view xml, const std::string& partName, const std::string& fileName);

    /// The font of the style "Normal", whose digits are the unit of column widths.
    [[nodiscard]] const CellFont& defaultFont() const { return defaultFont_; }
    /// Of a cell format; an index without a format has the defaults.
    [[nodiscard]] const CellFont& fontOf(int style) const;
    /// Whether cells of that format are locked on a protected sheet; they are unless the format says not.
    [[nodiscard]] bool isLocked(int style) const;
    /// Whether the text is broken into lines, stands turned or shrinks to fit; AutoFit leaves such cells out.
    [[nodiscard]] bool fitsItself(int style) const;

  private:
    struct CellFormat {
        CellFont font;
        bool locked = true;
        bool fitsItself = false;
    };

    /// Null for an index without a format.
    [[nodiscard]] const CellFormat* formatOf(int style) const;

    CellFont defaultFont_;
    std::vector<CellFormat> formats_;
};

}  // namespace mergeloom::embedded
