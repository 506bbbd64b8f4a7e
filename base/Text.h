#pragma once

#include "base/Units.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Text is UTF-8 throughout the program; these routines are the only places that look at its bytes.
namespace mergeloom {

constexpr bool isAscii(char character) {
    return static_cast<unsigned char>(character) < 0x80;
}

constexpr bool isAsciiLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// Returns a capital letter of ASCII as a small one, any other character as it is.
constexpr char toLowerAscii(char character) {
    const bool capital = character >= 'A' && character <= 'Z';
    return capital ? static_cast<char>(character - 'A' + 'a') : character;
}

/// Returns the first code point of a non-empty text. A byte that is not UTF-8 reads as U+FFFD.
char32_t firstCodePoint(std::string_view text);

/// Removes and returns the first code point of a text that does not start with ASCII.
char32_t takeLongCodePoint(std::string_view& text);

/// Removes and returns the first code point of a non-empty text. A byte that is not UTF-8 reads as U+FFFD.
inline char32_t takeCodePoint(std::string_view& text) {
    // Most characters are ASCII, which needs neither decoding nor tables.
    if (!isAscii(text.front())) return takeLongCodePoint(text);
    const char character = text.front();
    text.remove_prefix(1);
    return static_cast<char32_t>(character);
}

/// Returns true when every byte of a text belongs to a well-formed UTF-8 character.
bool isUtf8(std::string_view text);

/// Appends a code point. Half of a surrogate pair and a number beyond Unicode are written as U+FFFD.
void appendCodePoint(std::string& text, char32_t codePoint);
/// Converts UTF-16. An unpaired surrogate becomes U+FFFD.
std::string fromUtf16(std::u16string_view units);
/// Converts to UTF-16. A byte that is not UTF-8 becomes U+FFFD.
std::u16string toUtf16(std::string_view text);

/// Returns the number of UTF-16 code units of a text.
CharacterCount utf16Length(std::string_view text);

/// Returns the byte offset at which the given number of UTF-16 code units of a text end; the text's size when
/// it has fewer. A count that ends between the halves of a surrogate pair is rounded up to after the
/// character.
std::size_t byteOffset(std::string_view text, CharacterCount units);

/// Returns the first characters of a text, at most the given number of UTF-16 code units. Does not split
/// characters.
std::string_view firstCharacters(std::string_view text, CharacterCount units);

/// Returns the last characters of a text, at most the given number of UTF-16 code units; never half a
/// character.
std::string_view lastCharacters(std::string_view text, CharacterCount units);

/// Returns the text for comparisons regardless of letter case (simple case folding of Unicode).
std::string foldCase(std::string_view text);
/// Returns a code point with folded case.
char32_t foldedCodePoint(char32_t codePoint);
/// Removes the first code point of a non-empty text and returns it with folded case.
inline char32_t takeFoldedCodePoint(std::string_view& text) {
    if (!isAscii(text.front())) return foldedCodePoint(takeLongCodePoint(text));
    const char character = text.front();
    text.remove_prefix(1);
    return static_cast<char32_t>(toLowerAscii(character));
}
bool equalsIgnoringCase(std::string_view a, std::string_view b);
bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b);
/// Returns the byte offset of the first occurrence, ignoring ASCII case, at or after from; npos when there is
/// none.
std::size_t findIgnoringAsciiCase(std::string_view text, std::string_view part, std::size_t from = 0);

std::string toLowerAscii(std::string_view text);
/// Removes blanks (U+0020 only) from both ends.
std::string_view trimBlanks(std::string_view text);
std::vector<std::string_view> split(std::string_view text, char separator);
/// Replaces every occurrence of a non-empty part.
std::string replaceAll(std::string_view text, std::string_view part, std::string_view replacement);

/// Returns true if a code point outside of ASCII is a letter in names.
bool isLongNameLetter(char32_t codePoint);
/// Returns true for a letter (a Unicode property) of one UTF-16 code unit, which Word accepts in a bookmark's
/// name.
inline bool isNameLetter(char32_t codePoint) {
    return codePoint < 0x80 ? isAsciiLetter(static_cast<char>(codePoint)) : isLongNameLetter(codePoint);
}
constexpr bool isDigit(char32_t codePoint) {
    return codePoint >= U'0' && codePoint <= U'9';
}

/// Returns true for a character that changes how the text around it is shown: control characters, and those
/// that embed or override a direction of writing.
bool isControlCharacter(char32_t letter);

}  // namespace mergeloom
