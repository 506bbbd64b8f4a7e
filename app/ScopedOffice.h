#pragma once

#include "base/ErrorHandler.h"
#include "office/model/excel/Application.h"
#include "office/model/word/Application.h"

#include <functional>
#include <memory>
#include <utility>

namespace mergeloom {

/// Starts an office that implements Excel's object model.
using ExcelStarter = std::function<excel::ApplicationPtr()>;

/// Starts an office that implements Word's object model.
using WordStarter = std::function<word::ApplicationPtr()>;

/// Closes all documents of an office unsaved and ends it.
void closeOffice(word::Application& office);
void closeOffice(excel::Application& office);

/// An office that a run started for itself. At the end of its life it is closed with all its documents,
/// unsaved.
template <typename Application>
class ScopedOffice {
  public:
    ScopedOffice(std::shared_ptr<Application> application, ErrorHandler& errors)
        : application_(std::move(application)), errors_(errors) {}
    ScopedOffice(const ScopedOffice&) = delete;
    ScopedOffice& operator=(const ScopedOffice&) = delete;
    ~ScopedOffice() {
        trap(errors_, "CAutoMapping", "Execute", [this] { closeOffice(*application_); });
    }

    Application& operator*() const { return *application_; }
    Application* operator->() const { return application_.get(); }

  private:
    std::shared_ptr<Application> application_;
    ErrorHandler& errors_;
};

}  // namespace mergeloom
