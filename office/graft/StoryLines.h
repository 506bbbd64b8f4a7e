#pragma once

#include "office/embedded/text/Story.h"
#include "office/graft/CanonicalXml.h"
#include "office/graft/FormatNumbers.h"

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// The mark at which a line of a story ends.
enum class LineEnd : std::uint8_t { Paragraph, Cell, Row };

/// A visible unit of a line: a character, an object, or a field whose text the office computes.
struct Unit {
    char32_t code = 0;
    CharacterPosition start;
    CharacterPosition end;
    int format = 0;      ///< of its run and the containers around it; only set for exports
    pugi::xml_node run;  ///< none for a field
};

/// Placeholders in a line for units that are no characters.
inline constexpr char32_t kObject = U'\xFFFC';
inline constexpr char32_t kField = U'\xFFFB';

/// Returns true for a symbol of a font. In the file it is an object with its font (CT_Sym, ECMA-376 Part 1,
/// 17.3.3.30), in exports a character of the area that symbol fonts use, and the font is its formatting.
inline bool isSymbol(const Unit& unit) {
    return unit.code >= 0xF020 && unit.code <= 0xF0FF;
}

/// A paragraph with the mark that ends it, or the end of a row.
struct Line {
    std::vector<Unit> units;
    CharacterPosition start;
    CharacterPosition mark;  ///< the position before the mark
    LineEnd end = LineEnd::Paragraph;
    int depth = 0;        ///< of tables around it; a row's end is inside its table
    pugi::xml_node node;  ///< the paragraph or the row
    std::string key;      ///< equal for lines that look the same in two exports; only set for exports
};

/// Returns a text by which lines of different writers are compared: characters, the mark and the depth.
std::string textKeyOf(const Line& line);

/// Returns the start of a line's text for a message.
std::string shownText(const Line& line);

/// Reads the lines of stories.
class LineReader {
  public:
    /// For documents of any writer.
    LineReader() = default;
    /// For exports, whose lines get keys and formats. Both objects must outlive this.
    LineReader(const CanonicalXml& canonical, FormatNumbers& formats)
        : canonical_(&canonical), formats_(&formats) {}

    [[nodiscard]] std::vector<Line> read(embedded::Story& story) const;

  private:
    void describe(const embedded::Story& story, Line& line) const;
    [[nodiscard]] int formatOf(const embedded::Story& story, pugi::xml_node run) const;

    const CanonicalXml* canonical_ = nullptr;
    FormatNumbers* formats_ = nullptr;
};

}  // namespace mergeloom::graft
