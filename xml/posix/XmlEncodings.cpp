#include "xml/XmlEncodings.h"

namespace mergeloom {

/// Does nothing, since the parser uses the C library itself.
void addXmlEncodings() {}

}  // namespace mergeloom
