#pragma once

#include <string>

namespace mergeloom {

/// The error in a document. The reason is empty for a document without errors.
struct ParseError {
    std::string reason;  ///< from readStructure the parser's words; from a document a whole sentence
    int line = 0;        ///< from 1; 0 when the document could not be read at all
};

/// Returns the parser's error with the whole sentence for the document of that name.
inline ParseError withSentence(const ParseError& error, const std::string& name) {
    const std::string place = ", line " + std::to_string(error.line) + ": ";
    return {name + " could not be read" + place + error.reason + ".", error.line};
}

}  // namespace mergeloom
