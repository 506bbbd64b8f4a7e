#include "office/libreoffice/session/LateAnswers.h"

#include <rtl/byteseq.hxx>

namespace mergeloom::libreoffice {

ThreadAnswers::ThreadAnswers() : pool_(uno_threadpool_create()) {
    uno_threadpool_attach(pool_);
}

ThreadAnswers::~ThreadAnswers() {
    uno_threadpool_detach(pool_);
    uno_threadpool_destroy(pool_);
}

void ThreadAnswers::put(void* answer) {
    sal_Sequence* bytes = nullptr;
    uno_getIdOfCurrentThread(&bytes);
    const rtl::ByteSequence thread(bytes, rtl::BYTESEQ_NOACQUIRE);
    uno_threadpool_putJob(pool_, thread.getHandle(), answer, nullptr, false);
    uno_releaseIdFromCurrentThread();
}

void* ThreadAnswers::take() {
    void* answer = nullptr;
    uno_threadpool_enter(pool_, &answer);
    return answer;
}

/// Leaks the answers, since their type is internal to UNO.
void discardLateAnswers() {
    ThreadAnswers answers;
    char last = 0;
    answers.put(&last);
    while (answers.take() != &last) {
    }
}

}  // namespace mergeloom::libreoffice
