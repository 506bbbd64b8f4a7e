#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The formatting that rich text adds to that of its place.
struct RichFont {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::string color{};  ///< six hexadecimal digits, or empty
    std::string face{};
    int halfPoints = 0;  ///< 0 for the size of the place

    friend bool operator==(const RichFont&, const RichFont&) = default;
};

/// A text of one formatting. A line break in it is a "\n".
struct RichRun {
    std::string text;
    RichFont font{};
};

enum class RichList : std::uint8_t { None, Bullets, Numbers };

struct RichParagraph {
    std::vector<RichRun> runs{};
    RichList list = RichList::None;
    int number = 0;  ///< in its list, from 1
    int depth = 0;   ///< of lists around it
};

/// Reads the small HTML of a database's rich text field: paragraphs (div, p), line breaks, b, strong, i, em,
/// u, font with its color, face and size, and lists. Other elements are passed through. None for text that is
/// broken: a tag without an end, or elements that do not nest.
std::optional<std::vector<RichParagraph>> readRichText(std::string_view html);

/// Returns the text of broken HTML: what stands outside of "<" and ">".
std::string withoutTags(std::string_view html);

}  // namespace mergeloom::embedded
