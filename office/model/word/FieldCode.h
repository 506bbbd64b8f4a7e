#pragma once

#include "office/model/word/Enumerations.h"

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::word {

/// Returns the pieces of a field's code (ECMA-376 Part 1, 17.16.1): the keyword, then the arguments and
/// switches. Any run of blanks, tabs and line ends separates two pieces. A text between double quotes is one
/// piece, without the quotes; in it a backslash before a quote or another backslash stands for that character
/// alone.
std::vector<std::string> piecesOfCode(std::string_view code);

/// Returns the text in quotes, such that piecesOfCode reads it as one piece.
std::string quotedPiece(const std::string& text);

/// Returns the code in one line, as it is shown to users: with a blank for each run of separators and none at
/// the ends.
std::string shownCode(std::string_view code);

/// Returns the type of a field by the keyword of its code (17.16.5), in which letter case does not count.
WdFieldType typeOfCode(std::string_view code);

/// Returns true if the result of a field is text of the document. All other results are computed by each
/// program that reads the document.
bool hasTextOfItsOwn(std::string_view code);

/// Returns true for the fields of MailMerge.Fields.
bool isInMailMergeFields(WdFieldType type);

}  // namespace mergeloom::word
