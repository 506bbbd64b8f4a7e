#pragma once

namespace mergeloom {

/// Lets the parser read documents in the encodings that the system knows, besides those of Unicode and
/// Latin-1. Does nothing after the first call.
void addXmlEncodings();

}  // namespace mergeloom
