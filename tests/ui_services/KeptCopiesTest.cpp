#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "doubles/TemporaryFolder.h"
#include "ui/services/KeptCopies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utime.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Copies : public testing::Test {
  protected:
    /// Makes the copy of a window that has ended.
    std::string leave(const std::string& original, std::time_t time) {
        KeptCopies window(disk, kept);
        std::string path = window.pathFor(original, "odt");
        disk.save(path, [](ByteSink& sink) { sink.write(std::string_view("changes")); });
        const utimbuf times{time, time};
        ::utime(path.c_str(), &times);
        return path;
    }
    std::vector<std::string> originals(const KeptCopies& window) {
        std::vector<std::string> found;
        for (const KeptCopy& copy : window.left("odt"))
            found.push_back(copy.original);
        return found;
    }

    TemporaryFolder folder;
    DiskFileStore disk;
    std::string kept = folder / "state/kept";
};

TEST_F(Copies, LeftOnesComeNewestFirst) {
    KeptCopies window(disk, kept);
    EXPECT_THAT(window.left("odt"), IsEmpty());
    leave("/home/old.docx", 1000);
    leave("/home/new.docx", 5000);
    leave("", 3000);
    EXPECT_THAT(originals(window), ElementsAre("/home/new.docx", "", "/home/old.docx"));
    EXPECT_THAT(window.left("ods"), IsEmpty());
}

TEST_F(Copies, OneThatWasOnlyBegunIsNone) {
    {
        KeptCopies window(disk, kept);
        window.pathFor("/home/a.docx", "odt");
        EXPECT_FALSE(window.own());
    }
    EXPECT_THAT(KeptCopies(disk, kept).left("odt"), IsEmpty());
}

TEST_F(Copies, AWindowHasOneAndNotesTheNewestName) {
    KeptCopies window(disk, kept);
    const std::string path = window.pathFor("", "odt");
    disk.save(path, [](ByteSink& sink) { sink.write(std::string_view("changes")); });
    EXPECT_EQ(window.pathFor("/home/a.docx", "odt"), path);
    ASSERT_TRUE(window.own());
    EXPECT_EQ(window.own()->original, "/home/a.docx");
    EXPECT_THAT(window.left("odt"), IsEmpty());

    window.removeOwn();
    EXPECT_FALSE(window.own());
    EXPECT_THAT(KeptCopies(disk, kept).left("odt"), IsEmpty());
    EXPECT_FALSE(fileExists(path));
}

TEST_F(Copies, AdoptedOnesAreOwnUntilTheyAreReleased) {
    const std::string path = leave("/home/a.docx", 1000);
    KeptCopies window(disk, kept);
    ASSERT_TRUE(window.adopt(window.left("odt").front()));
    EXPECT_EQ(window.own()->path, path);
    EXPECT_THAT(window.left("odt"), IsEmpty());
    window.release();
    EXPECT_THAT(originals(window), ElementsAre("/home/a.docx"));
    removeFile(path);
    EXPECT_FALSE(window.adopt({path, "/home/a.docx", {}})) << "it has gone meanwhile";
}

}  // namespace
}  // namespace mergeloom
