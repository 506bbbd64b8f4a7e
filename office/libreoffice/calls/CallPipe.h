#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// Owns a file descriptor.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor();

    [[nodiscard]] int number() const { return number_; }

  private:
    int number_;
};

/// The kinds of frames in the pipe.
enum class FrameKind : char {
    Request,
    Answer,
    Rest,     ///< no request follows for now
    Resting,  ///< no requests are read until this is requested again
};

struct CallFrame {
    FrameKind kind = FrameKind::Request;
    std::string bytes;
};

/// One end of a local connection between two processes. Members raise std::system_error when the other
/// process has ended. A frame takes one system call on each side, since system calls are most of its cost.
class CallPipe {
  public:
    explicit CallPipe(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    void send(FrameKind kind, const std::string& bytes);
    CallFrame receive();
    /// Returns none if nothing is received within the patience.
    std::optional<CallFrame> tryToReceive();
    /// Sets the time after which tryToReceive returns none. The default is to wait without a limit.
    void setPatience(std::chrono::milliseconds time);

  private:
    /// Returns false if nothing is received within the patience.
    bool read();
    [[nodiscard]] std::size_t missing() const;

    Descriptor descriptor_;
    std::string received_;  ///< the bytes of frames that were not returned yet
};

/// A socket in a folder, to which another process can connect.
class CallListener {
  public:
    /// Raises std::system_error when the socket cannot be made.
    explicit CallListener(const std::string& folder);

    /// Returns the connection; waits until there is one.
    CallPipe accept();

  private:
    Descriptor descriptor_;
};

/// Connects to the listener in the folder. Raises std::system_error when there is none.
CallPipe connectToListener(const std::string& folder);

}  // namespace mergeloom::libreoffice
