#pragma once

#include <chrono>
#include <string_view>

namespace mergeloom::libreoffice {

/// A pipe to the input of another process. The other process reads its end when this process ends, for
/// whatever reason, since no other process holds this end.
class LifelinePipe {
  public:
    /// Raises kNotAvailable when the system has no pipe left.
    LifelinePipe();
    LifelinePipe(const LifelinePipe&) = delete;
    LifelinePipe& operator=(const LifelinePipe&) = delete;
    ~LifelinePipe();

    /// Returns the descriptor that the other process is to get as its input.
    [[nodiscard]] int farEnd() const { return ends_[1]; }
    /// Closes the far end in this process, after the other process was started.
    void handOver();
    /// Sends the line; does nothing when the other process is gone.
    void send(std::string_view line) const;
    /// Waits until the other process sends a line back or is gone. Bounded in time.
    void waitForLine(std::chrono::milliseconds bound) const;

  private:
    int ends_[2] = {-1, -1};
};

}  // namespace mergeloom::libreoffice
