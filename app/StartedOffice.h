#pragma once

#include "base/ErrorHandler.h"
#include "office/model/word/Application.h"

namespace mergeloom {

/// An office that a mapping started for itself. It is closed with all its documents, unsaved, at the end.
class StartedOffice {
  public:
    StartedOffice(word::ApplicationPtr application, ErrorHandler& errors)
        : application_(std::move(application)), errors_(errors) {}
    StartedOffice(const StartedOffice&) = delete;
    StartedOffice& operator=(const StartedOffice&) = delete;
    ~StartedOffice();

    word::Application& operator*() const { return *application_; }
    word::Application* operator->() const { return application_.get(); }

  private:
    void close();

    word::ApplicationPtr application_;
    ErrorHandler& errors_;
};

}  // namespace mergeloom
