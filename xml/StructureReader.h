#pragma once

#include "xml/ParseError.h"
#include "xml/RecordBuilder.h"

#include <cstddef>
#include <functional>

namespace pugi {
class xml_document;
}

namespace mergeloom {

/// Reads the next bytes of a document into a buffer and returns their number, 0 at the end. May raise an
/// AutomationError.
using ByteReader = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Reads a document strictly as XML 1.0 with namespaces into an empty tree. No network and no other file is
/// read; entities of the document itself are replaced as long as they stay small. Passes on the errors of the
/// byte reader.
ParseError readStructure(const ByteReader& bytes, pugi::xml_document& document);

/// The use of the data whose records are passed to a handler. Data that are not kept need no memory, so that
/// a document may have any number of records.
enum class DataUse { HandedOver, Kept };

/// Reads a document in the same way, and passes the records of its first Data element to the handler one by
/// one. Unless the data are kept, no Data element has content in the tree. Passes on the errors of the
/// handler, too.
ParseError readStructure(const ByteReader& bytes, pugi::xml_document& document, const RecordHandler& records,
                         DataUse use);

}  // namespace mergeloom
