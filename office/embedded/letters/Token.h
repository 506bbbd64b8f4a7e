#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The kinds of tokens.
enum class TokenKind : char {
    Value = 'V',                  ///< the text of a place
    RowsStart = 'R',              ///< the start of the pattern rows of a table
    RowsEnd = 'r',                ///< their end
    TableStart = 'T',             ///< a table that lists records
    TableEnd = 't',               ///< its end
    Once = 'O',                   ///< XML that is written only in the first repetition
    Id = 'I',                     ///< an id that must be unique
    OptionalStart = 'B',          ///< text that is omitted if a value beside it is empty
    OptionalEnd = 'b',            ///< its end
    PictureStart = 'P',           ///< a picture that a record may replace
    PictureEnd = 'p',             ///< its end
    LabelStart = 'A',             ///< the content of a label
    LabelEnd = 'a',               ///< its end
    NoteId = 'N',                 ///< the id of a footnote, an endnote or a comment
    PartLink = 'L',               ///< the relationship to a header or a footer
    SectionStart = 'D',           ///< the section of a record
    SectionEnd = 'd',             ///< its end
    SectionBreak = 'S',           ///< the properties of a section, except of the last one
    ParagraphSectionStart = 'E',  ///< the properties of a section that ends with a paragraph of values
    ParagraphSectionEnd = 'e',    ///< their end
    AnnotationId = 'C',           ///< the id of a tracked change, which must be unique
    ShapeId = 'H',                ///< the id of a shape, which must be unique
    ListId = 'U',                 ///< the id of a list that counts
    RecordMark = 'M',             ///< the bookmark at the start of a record
};

/// The first character of every token, a noncharacter (U+FDD0).
inline constexpr std::string_view kAnyToken = "\uFDD0";

/// A mark in the text of a template, at which its XML is cut. It begins and ends with noncharacters, which no
/// text contains (U+FDD0 and U+FDD1).
struct Token {
    TokenKind kind = TokenKind::Value;
    std::size_t number = 0;

    [[nodiscard]] std::string text() const;
    /// Removes the first token and everything before it from the XML. Returns the token and sets the XML
    /// before it; returns none if there is no token.
    static std::optional<Token> takeFirst(std::string_view& xml, std::string_view& before);
    /// Returns the token if it is the whole text; none otherwise.
    static std::optional<Token> of(std::string_view text);
};

}  // namespace mergeloom::embedded
