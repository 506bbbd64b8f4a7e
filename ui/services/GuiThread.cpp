#include "ui/services/GuiThread.h"

#include <QCoreApplication>
#include <QThread>
#include <exception>

namespace mergeloom {

void callOnGuiThread(const std::function<void()>& call) {
    QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->thread() == QThread::currentThread()) return call();
    // An exception must not leave through the event loop.
    std::exception_ptr error;
    const auto guarded = [&] {
        try {
            call();
        } catch (...) {
            error = std::current_exception();
        }
    };
    QMetaObject::invokeMethod(application, guarded, Qt::BlockingQueuedConnection);
    if (error) std::rethrow_exception(error);
}

}  // namespace mergeloom
