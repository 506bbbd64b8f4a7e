#pragma once

#include <string>

namespace mergeloom {

/// The changes of the window by the rules for templates. Called by the office's thread.
class LifecycleView {
  public:
    LifecycleView() = default;
    LifecycleView(const LifecycleView&) = delete;
    LifecycleView& operator=(const LifecycleView&) = delete;
    virtual ~LifecycleView() = default;

    virtual void showCaption(const std::string& caption) = 0;
};

}  // namespace mergeloom
