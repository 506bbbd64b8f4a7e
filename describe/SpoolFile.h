#pragma once

#include "base/FileStore.h"

#include <cstdio>
#include <memory>

namespace mergeloom::describe {

/// Stores bytes in an unnamed temporary file until the whole output is complete.
class SpoolFile final : public ByteSink {
  public:
    /// Raises kFileCouldNotBeSaved.
    SpoolFile();

    void write(std::span<const char> bytes) override;
    void copyTo(ByteSink& sink);

  private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

}  // namespace mergeloom::describe
