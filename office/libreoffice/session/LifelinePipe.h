#pragma once

#include <chrono>
#include <string_view>

namespace mergeloom::libreoffice {

/// A channel to the input of another process. The other one sees its end when this process ends in whatever
/// way, since nobody else holds the near end.
class LifelinePipe {
  public:
    /// Raises kNotAvailable when the system has no channel left.
    LifelinePipe();
    LifelinePipe(const LifelinePipe&) = delete;
    LifelinePipe& operator=(const LifelinePipe&) = delete;
    ~LifelinePipe();

    /// What the other process is to get as its input.
    [[nodiscard]] int farEnd() const { return ends_[1]; }
    /// Closes this process's hold on the far end, after the other process was started.
    void handOver();
    /// Does nothing when the other process is gone.
    void send(std::string_view line) const;
    /// Waits until the other process writes a line back or is gone. Bounded in time.
    void waitForLine(std::chrono::milliseconds bound) const;

  private:
    int ends_[2] = {-1, -1};
};

}  // namespace mergeloom::libreoffice
