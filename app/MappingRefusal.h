#pragma once

#include <stdexcept>

namespace mergeloom {

/// Ends a mapping that cannot be made as it was requested. Its text is a sentence for the user; nothing has
/// been written.
class MappingRefusal : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace mergeloom
