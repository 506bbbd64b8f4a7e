#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <thread>

namespace mergeloom::libreoffice {

/// A thread that passes on the events of a connection to the X server.
class WindowEvents {
  public:
    using Handler = std::function<void(const xcb_generic_event_t& event)>;

    /// The connection must outlive it. Other threads may send requests on it, but must not wait for replies,
    /// since that would remove events from the queue. Raises kNotAvailable if the system has no channel left.
    WindowEvents(xcb_connection_t* connection, Handler handler);
    WindowEvents(const WindowEvents&) = delete;
    WindowEvents& operator=(const WindowEvents&) = delete;
    /// Waits for a running call of the handler.
    ~WindowEvents();

  private:
    void run();

    xcb_connection_t* connection_;
    const Handler handler_;
    int wakeUp_[2] = {-1, -1};
    std::thread thread_;
};

}  // namespace mergeloom::libreoffice
