#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// What a token in the XML of a template marks.
enum class TokenKind : char {
    Value = 'V',          ///< the text of a place
    RowsStart = 'R',      ///< the first pattern row of a table
    RowsEnd = 'r',        ///< the end of the last one
    TableStart = 'T',     ///< a table that lists records
    TableEnd = 't',       ///< its end
    Once = 'O',           ///< XML that stands in the first repetition only
    Id = 'I',             ///< an id that must be unique
    OptionalStart = 'B',  ///< text that goes with an empty value beside it
    OptionalEnd = 'b',    ///< its end
    PictureStart = 'P',   ///< a picture that a record may replace
    PictureEnd = 'p',     ///< its end
    LabelStart = 'A',     ///< the content of a label
    LabelEnd = 'a',       ///< its end
    NoteId = 'N',         ///< the id of a footnote or an endnote
    PartLink = 'L',       ///< the relationship to a header or a footer
    SectionStart = 'D',   ///< the section of a record
    SectionEnd = 'd',     ///< its end
    SectionBreak = 'S',   ///< where the properties of a section stand that another one follows
};

/// Begins every token: a character of Unicode that no text has.
inline constexpr std::string_view kAnyToken = "\uFDD0";

/// A mark that is written into a template's XML as text, so that the XML can be cut there. It begins and ends
/// with a character of Unicode that no text has (U+FDD0 and U+FDD1).
struct Token {
    TokenKind kind = TokenKind::Value;
    std::size_t number = 0;

    [[nodiscard]] std::string text() const;
    /// Removes everything up to and including the first token from the XML and returns the token; sets what
    /// stood before it. None when there is no token.
    static std::optional<Token> takeFirst(std::string_view& xml, std::string_view& before);
    /// Returns the token that is the whole text; none for any other text.
    static std::optional<Token> of(std::string_view text);
};

}  // namespace mergeloom::embedded
