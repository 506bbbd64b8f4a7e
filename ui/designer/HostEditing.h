#pragma once

#include "base/AutomationError.h"
#include "office/model/DocumentHost.h"

namespace mergeloom {

/// Lets the object model work on the hosted document during its life: the user cannot edit it, and the
/// model's selection is the view's.
class HostEditing {
  public:
    explicit HostEditing(DocumentHost& host) : host_(host) {
        host_.setEnabled(false);
        try {
            host_.beginEditing();
        } catch (...) {
            enable();
            throw;
        }
    }
    HostEditing(const HostEditing&) = delete;
    HostEditing& operator=(const HostEditing&) = delete;
    ~HostEditing() {
        quietly([this] { host_.endEditing(); });
        enable();
    }

  private:
    void enable() {
        quietly([this] { host_.setEnabled(true); });
    }
    /// Ignores an office that has ended, which is reported by itself.
    template <typename Call>
    static void quietly(const Call& call) {
        try {
            call();
        } catch (const AutomationError&) {
            return;
        }
    }

    DocumentHost& host_;
};

}  // namespace mergeloom
