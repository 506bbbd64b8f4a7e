#include "doubles/ChangedVariable.h"
#include "doubles/TemporaryFolder.h"
#include "office/libreoffice/session/OfficeProfile.h"
#include "office/libreoffice/session/UserProfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::libreoffice {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kSettings = "user/registrymodifications.xcu";

TEST(OfficeProfile, KeepsTheUsersSettingsAndItsOwn) {
    const TemporaryFolder folder;
    makeOfficeProfile(folder.path(), OfficeMode::Shown);
    std::string settings = folder.bytesOf(kSettings);
    EXPECT_THAT(settings, HasSubstr("ParagraphEnd"));

    const std::string own =
        R"(<item oor:path="/a"><prop oor:name="Mine" oor:op="fuse"><value>1</value></prop></item>)";
    const std::string enabled = R"("Enabled" oor:op="fuse"><value>true)";
    settings.replace(settings.find(R"("Enabled" oor:op="fuse"><value>false)"), enabled.size() + 1, enabled);
    settings.insert(settings.find("</oor:items>"), own + "\n");
    folder.put(kSettings, settings);
    makeOfficeProfile(folder.path(), OfficeMode::Shown);
    const std::string again = folder.bytesOf(kSettings);
    EXPECT_THAT(again, HasSubstr("xmlns:xsi=")) << "the office's own items use it";
    EXPECT_THAT(again, AllOf(HasSubstr(own), HasSubstr("ParagraphEnd"), Not(HasSubstr(enabled))));

    makeOfficeProfile(folder.path(), OfficeMode::Shown);
    EXPECT_EQ(folder.bytesOf(kSettings), again) << "nothing is written twice";
}

TEST(OfficeProfile, FollowsTheDesktopsColors) {
    const TemporaryFolder folder;
    HostLook dark;
    dark.colors = LookColors{.window = LookColor{0x202020}, .windowText = LookColor{0xF0F0F0}};
    HostLook light;
    light.colors = LookColors{.window = LookColor{0xF0F0F0}, .windowText = LookColor{0x202020}};
    makeOfficeProfile(folder.path(), OfficeMode::Shown, dark);
    EXPECT_THAT(folder.bytesOf(kSettings), HasSubstr("<value>colibre_dark</value>"));
    for (const char* const color : {"['LibreOffice']/AppBackground\"><prop oor:name=\"Color\"",
                                    "_AUTOMATIC']/AppBackground\"><prop oor:name=\"Light\"",
                                    "_AUTOMATIC']/AppBackground\"><prop oor:name=\"Dark\""})
        EXPECT_THAT(folder.bytesOf(kSettings),
                    HasSubstr(std::string(color) + " oor:op=\"fuse\"><value>2105376</value>"));
    makeOfficeProfile(folder.path(), OfficeMode::Shown, light);
    EXPECT_THAT(folder.bytesOf(kSettings), AllOf(HasSubstr("<value>colibre</value>"),
                                                 Not(HasSubstr("colibre_dark")), Not(HasSubstr("2105376"))));
}

TEST(OfficeProfile, OneThatIsNotWholeIsMadeAnew) {
    const TemporaryFolder folder;
    makeOfficeProfile(folder.path(), OfficeMode::Shown);
    const std::string settings = folder.bytesOf(kSettings);
    folder.put(kSettings, settings.substr(0, settings.size() / 2));
    makeOfficeProfile(folder.path(), OfficeMode::Shown);
    EXPECT_EQ(folder.bytesOf(kSettings), settings);
}

TEST(OfficeProfile, EachOfficeHasOneOfItsOwn) {
    const TemporaryFolder folder;
    const ChangedVariable home("XDG_CONFIG_HOME", folder.path());
    const UserProfile used;
    {
        const UserProfile other;
        EXPECT_NE(other.path(), used.path());
    }
    EXPECT_EQ(used.path(), folder / "mergeloom/office/1");
    EXPECT_EQ(UserProfile().path(), folder / "mergeloom/office/2");
}

TEST(OfficeProfile, WithoutAFolderThereIsNone) {
    const TemporaryFolder folder;
    folder.put("file", "");
    const ChangedVariable home("XDG_CONFIG_HOME", folder / "file");
    EXPECT_EQ(UserProfile().path(), "");
}

}  // namespace

}  // namespace mergeloom::libreoffice
