#pragma once

#include "base/FileStore.h"

#include <cstdio>
#include <memory>

namespace mergeloom::describe {

/// Keeps what is written until all of it is known to be right, in a temporary file without a name.
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
