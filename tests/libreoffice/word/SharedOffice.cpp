#include "libreoffice/word/SharedOffice.h"

#include <gtest/gtest.h>

namespace mergeloom {

namespace {

/// Stands for the store of the test that runs.
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

/// Ends the office before the program's end, where nothing that it needs is left. Whoever still held it there
/// would call an office through libraries that are being unloaded.
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
