#pragma once

#include <uno/threadpool.h>

namespace mergeloom::libreoffice {

/// UNO's queue of the answers to this thread's calls, which all connections share.
class ThreadAnswers {
  public:
    ThreadAnswers();
    ThreadAnswers(const ThreadAnswers&) = delete;
    ThreadAnswers& operator=(const ThreadAnswers&) = delete;
    ~ThreadAnswers();

    void put(void* answer);
    /// Waits for an answer, removes it from the queue and returns it.
    [[nodiscard]] void* take();

  private:
    uno_ThreadPool pool_;
};

/// Removes the answers of ended connections from this thread's queue. When an answer and the end of its
/// connection arrive together, UNO tells the caller only the end and leaves the answer in the queue, where
/// the next call would take it for its own, whatever office it asks.
void discardLateAnswers();

}  // namespace mergeloom::libreoffice
