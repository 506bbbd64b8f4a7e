#pragma once

#include "automation/DoubleObject.h"
#include "base/FileStore.h"
#include "office/com/automation/AutomationObject.h"

#include <string>

namespace mergeloom::automation {

/// Returns an object that offers the files of a test to a double in another process.
DispatchPtr serveFiles(FileStore& files);

/// The files of a test in another process, for the double. There are none before they are given.
class ServedFiles final : public FileStore {
  public:
    void use(const DispatchPtr& served);

    bool fileExists(const std::string& path) override;
    std::string read(const std::string& path) override;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override;

  private:
    [[nodiscard]] com::AutomationObject served() const;

    com::SessionPtr session_ = std::make_shared<com::AutomationSession>("The test", com::Patience{}, nullptr);
    DispatchPtr served_;
};

}  // namespace mergeloom::automation
