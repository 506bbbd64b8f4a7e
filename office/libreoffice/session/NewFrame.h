#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/frame/XFrame.hpp>

namespace mergeloom::libreoffice {

/// A new frame. Is disposed of in the end if no document was loaded into it.
class NewFrame {
  public:
    explicit NewFrame(const Reference<css::frame::XFrame>& frame) : frame_(frame) {}
    NewFrame(const NewFrame&) = delete;
    NewFrame& operator=(const NewFrame&) = delete;
    ~NewFrame() {
        try {
            if (!frame_->getController().is()) frame_->dispose();
        } catch (const css::uno::Exception&) {
            // The office ended, and with it its frames.
        }
    }

    [[nodiscard]] const Reference<css::frame::XFrame>& get() const { return frame_; }

  private:
    Reference<css::frame::XFrame> frame_;
};

}  // namespace mergeloom::libreoffice
