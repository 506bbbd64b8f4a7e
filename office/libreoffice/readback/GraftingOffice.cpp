#include "office/libreoffice/readback/GraftingOffice.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/PollingThread.h"

#include <chrono>
#include <utility>

namespace mergeloom::libreoffice {

GraftingOffice::~GraftingOffice() {
    {
        const std::scoped_lock lock(processMutex_);
        ends_ = true;
        if (exporting_ != nullptr) exporting_->kill();
    }
    if (thread_.joinable()) thread_.join();
}

LibreOfficeSession& GraftingOffice::hidden() {
    if (!hidden_ || !hidden_->isAlive()) {
        hidden_.reset();
        hidden_ = std::make_unique<LibreOfficeSession>(files_);
    }
    return *hidden_;
}

/// Raises kNotAvailable at the end, when no export may begin.
void GraftingOffice::setExporting(LibreOfficeProcess* process) {
    const std::scoped_lock lock(processMutex_);
    exporting_ = process;
    if (process != nullptr && ends_) throw AutomationError(kNotAvailable, "LibreOffice was ended.");
}

std::string GraftingOffice::exportOf(const HiddenExport& wanted) {
    if (begun_.valid()) begun_.wait();
    return makeExport(wanted);
}

std::string GraftingOffice::makeExport(const HiddenExport& wanted) {
    LibreOfficeSession& office = hidden();
    setExporting(&office.process());
    try {
        std::string exported = office.files().exportOf(wanted.source, *wanted.bytes, wanted.path,
                                                       wanted.format, wanted.password);
        setExporting(nullptr);
        return exported;
    } catch (...) {
        setExporting(nullptr);
        throw;
    }
}

bool GraftingOffice::isExporting() const {
    return begun_.valid() && begun_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

std::shared_future<std::string> GraftingOffice::beginExport(HiddenExport wanted) {
    if (isExporting()) return {};
    if (thread_.joinable()) thread_.join();
    std::packaged_task<std::string()> task([this, wanted = std::move(wanted)] { return makeExport(wanted); });
    begun_ = task.get_future().share();
    const BlockedSignals blocked;
    thread_ = std::thread(std::move(task));
    return begun_;
}

}  // namespace mergeloom::libreoffice
