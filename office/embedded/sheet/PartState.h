#pragma once

#include "office/embedded/sheet/UndoLog.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace mergeloom::embedded {

/// Whether the package has a part as it stands now. A part that was edited and taken back to what the package
/// has counts as unchanged; one that was written between the two counts as changed.
class PartState {
  public:
    /// The log must outlive the state.
    explicit PartState(UndoLog& undo) : undo_(undo) {}
    PartState(const PartState&) = delete;
    PartState& operator=(const PartState&) = delete;

    /// Says that the part was changed and how that is taken back.
    void change(std::function<void()> takeBack) {
        undo_.record([this, former = current_, takeBack = std::move(takeBack)] {
            takeBack();
            current_ = former;
        });
        current_ = ++latest_;
    }

    [[nodiscard]] bool isDirty() const { return current_ != stored_; }
    /// Says that the package has the part as it stands.
    void setStored() { stored_ = current_; }

  private:
    UndoLog& undo_;
    std::int64_t current_ = 0;
    std::int64_t latest_ = 0;
    std::int64_t stored_ = 0;
};

}  // namespace mergeloom::embedded
