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

/// Removes the answers of ended connections from this thread's queue. If an answer and the end of its
/// connection arrive together, UNO reports only the end to the caller and leaves the answer in the queue. The
/// next call, on any connection, would then receive it as its own answer.
void discardLateAnswers();

}  // namespace mergeloom::libreoffice
