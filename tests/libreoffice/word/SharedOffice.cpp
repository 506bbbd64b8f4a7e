#include "libreoffice/word/SharedOffice.h"

#include <gtest/gtest.h>

namespace mergeloom {

namespace {

/// The store of the running test.
class CurrentStore final : public FileStore {
  public:
    bool fileExists(const std::string& path) override { return files->fileExists(path); }
    std::string read(const std::string& path) override { return files->read(path); }
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        files->save(path, writer);
    }

    FileStore* files = nullptr;
};

CurrentStore currentStore;
std::shared_ptr<libreoffice::LibreOfficeSession> office;

/// Ends the office while its libraries are still loaded. Objects that still hold it at the end of the program
/// would call it through libraries that are being unloaded.
class OfficeEnd final : public testing::Environment {
  public:
    void TearDown() override {
        const std::weak_ptr<libreoffice::LibreOfficeSession> ended = office;
        office.reset();
        EXPECT_TRUE(ended.expired()) << "A test, or what it tested, kept the office.";
    }
};

const testing::Environment* const kEnd = testing::AddGlobalTestEnvironment(new OfficeEnd);

}  // namespace

std::shared_ptr<libreoffice::LibreOfficeSession> sharedOffice(FileStore& files) {
    currentStore.files = &files;
    if (!office) office = std::make_shared<libreoffice::LibreOfficeSession>(currentStore);
    return office;
}

}  // namespace mergeloom
