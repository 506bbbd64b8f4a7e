#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The formatting that rich text adds to the formatting of its place.
struct RichFont {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::string color{};  ///< six hexadecimal digits, or empty
    std::string face{};
    int halfPoints = 0;  ///< 0 for the size of the place

    friend bool operator==(const RichFont&, const RichFont&) = default;
};

/// A text with uniform formatting. Line breaks are "\n".
struct RichRun {
    std::string text;
    RichFont font{};
};

enum class RichList : std::uint8_t { None, Bullets, Numbers };

struct RichParagraph {
    std::vector<RichRun> runs{};
    RichList list = RichList::None;
    int number = 0;  ///< the number in its list, from 1
    int depth = 0;   ///< the number of enclosing lists
};

/// Reads the subset of HTML in rich text fields of databases: paragraphs (div, p), line breaks, b, strong, i,
/// em, u, font with color, face and size, and lists. Ignores other tags. Returns none for malformed text: an
/// incomplete tag, or elements that do not nest.
std::optional<std::vector<RichParagraph>> readRichText(std::string_view html);

/// Returns the text before a paragraph of a list: its indent, and a bullet or its number. Empty for other
/// paragraphs.
std::string listMarker(const RichParagraph& paragraph);

/// Returns the text of paragraphs, one in a line, with the bullets and numbers of lists.
std::string plainTextOf(const std::vector<RichParagraph>& paragraphs);

/// Returns the text of malformed HTML: everything outside of tags.
std::string withoutTags(std::string_view html);

}  // namespace mergeloom::embedded
