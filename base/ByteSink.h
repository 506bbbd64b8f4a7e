#pragma once

#include <span>

namespace mergeloom {

/// Where bytes are written one after the other.
class ByteSink {
  public:
    ByteSink() = default;
    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;
    virtual ~ByteSink() = default;

    /// Raises an AutomationError that says why when the bytes cannot be taken.
    virtual void write(std::span<const char> bytes) = 0;
};

}  // namespace mergeloom
