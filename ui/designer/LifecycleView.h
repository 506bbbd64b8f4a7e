#pragma once

#include <string>

namespace mergeloom {

/// What the rules for templates change in the window. Called by the office's thread.
class LifecycleView {
  public:
    LifecycleView() = default;
    LifecycleView(const LifecycleView&) = delete;
    LifecycleView& operator=(const LifecycleView&) = delete;
    virtual ~LifecycleView() = default;

    virtual void showCaption(const std::string& caption) = 0;
};

}  // namespace mergeloom
