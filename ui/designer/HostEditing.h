#pragma once

#include "base/AutomationError.h"
#include "office/model/DocumentHost.h"

namespace mergeloom {

/// The time in which the object model works on the hosted document: the user's hands are off it, and the
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
    /// An office that ended meanwhile tells of that itself.
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
