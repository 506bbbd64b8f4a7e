#pragma once

namespace mergeloom {

/// Registers the encodings of the system with the parser, which reads only Unicode and Latin-1 itself. Does
/// nothing after the first call.
void addXmlEncodings();

}  // namespace mergeloom
