#pragma once

#include "automation/DoubleClasses.h"
#include "automation/ServedFiles.h"
#include "base/FileStore.h"
#include "office/com/automation/AutomationObject.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace mergeloom::automation {

/// Returns the program of the double if the tests use it (MERGELOOM_DOUBLE). Returns the empty text if the
/// double is part of the test's program, which is quicker.
inline std::string doubleProgram() {
    const char* const program = std::getenv("MERGELOOM_DOUBLE");
    return program == nullptr ? "" : program;
}

/// Starts an office of the double's program with the files of a test. It must be registered.
inline DispatchPtr startDouble(const DoubleClass& started, FileStore& files) {
    const auto session = std::make_shared<com::AutomationSession>("The double", com::Patience{}, nullptr);
    const DispatchPtr application = session->start(started.programIdentifier);
    com::AutomationObject(session, application, "Application").put("TestFiles", serveFiles(files));
    return application;
}

/// The registration of the double. It also prevents its program from ending together with each of its
/// offices.
class DoubleEnvironment final : public testing::Environment {
  public:
    explicit DoubleEnvironment(const DoubleClass& used) : used_(used) {}

    void SetUp() override {
        if (doubleProgram().empty()) return;
        class_ = std::make_unique<RegisteredClass>(used_, used_.programIdentifier, doubleProgram());
        session_ = std::make_shared<com::AutomationSession>("The double", com::Patience{}, nullptr);
        keeper_ = session_->start(used_.programIdentifier);
    }
    void TearDown() override {
        if (keeper_) com::AutomationObject(session_, keeper_, "Application").call("Quit");
        keeper_.reset();
        session_.reset();
        class_.reset();
    }

  private:
    const DoubleClass& used_;
    std::unique_ptr<RegisteredClass> class_;
    com::SessionPtr session_;
    DispatchPtr keeper_;
};

}  // namespace mergeloom::automation
