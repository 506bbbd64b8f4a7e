#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

/// How the changes of one recorded step are taken back. Whoever changes a workbook says how to undo it; while
/// nothing is recorded, that costs nothing.
class UndoLog {
  public:
    /// Forgets the former step and starts a new one.
    void start() {
        steps_.clear();
        recording_ = true;
    }
    void stop() { recording_ = false; }

    [[nodiscard]] bool isRecording() const { return recording_; }
    /// Remembers how a change that was just made is taken back.
    void record(std::function<void()> takeBack) {
        if (recording_) steps_.push_back(std::move(takeBack));
    }

    /// Takes the recorded step back, its last change first; false when it holds none.
    bool undo() {
        recording_ = false;
        if (steps_.empty()) return false;
        while (!steps_.empty()) {
            steps_.back()();
            steps_.pop_back();
        }
        return true;
    }

  private:
    std::vector<std::function<void()>> steps_;
    bool recording_ = false;
};

}  // namespace mergeloom::embedded
