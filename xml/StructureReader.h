#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace pugi {
class xml_document;
}

namespace mergeloom {

/// What is wrong with a document. Loaded documents have an empty reason.
struct ParseError {
    std::string reason;  ///< from readStructure the words of the parser; from a document a whole sentence
    int line = 0;        ///< from 1; 0 when the document could not be read at all
};

/// Puts the next bytes of a document into a buffer: how many, 0 at the end. May raise an AutomationError.
using ByteReader = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Reads a document strictly as XML 1.0 with namespaces into an empty tree. Nothing but the bytes is read: no
/// network, no other file; entities of the document itself are replaced as far as they stay small. Raises
/// what the reader of the bytes raises.
ParseError readStructure(const ByteReader& bytes, pugi::xml_document& document);

}  // namespace mergeloom
