#include "xml/XmlEncodings.h"

namespace mergeloom {

/// The parser asks the C library itself.
void addXmlEncodings() {}

}  // namespace mergeloom
