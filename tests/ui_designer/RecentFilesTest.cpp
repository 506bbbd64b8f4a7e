#include "doubles/TemporaryFolder.h"
#include "ui/designer/RecentFiles.h"

#include <gtest/gtest.h>

#include <QAction>

namespace mergeloom {
namespace {

class Recent : public testing::Test {
  protected:
    std::string make(const std::string& name) {
        folder.put(name, "");
        return folder / name;
    }
    static QStringList namesOf(const RecentFiles& files) {
        QStringList names;
        for (const QString& path : files.paths())
            names += path.section(u'/', -1);
        return names;
    }

    TemporaryFolder folder;
    QSettings settings{QString::fromStdString(folder / "designer.ini"), QSettings::IniFormat};
    RecentFiles files{settings, "word"};
};

TEST_F(Recent, TheNewestComesFirstAndOnceOnly) {
    for (const char* name : {"a", "b", "c", "a"})
        files.add(make(name));
    EXPECT_EQ(namesOf(files), QStringList({"a", "c", "b"}));
    EXPECT_EQ(files.folder(), folder.path());
    EXPECT_EQ(namesOf(RecentFiles(settings, "excel")), QStringList());
}

TEST_F(Recent, MissingOnesAreLeftOutAndOldOnesForgotten) {
    for (int number = 1; number <= 10; ++number)
        files.add(make("f" + std::to_string(number)));
    std::filesystem::remove(folder / "f9");
    EXPECT_EQ(namesOf(files), QStringList({"f10", "f8", "f7", "f6", "f5", "f4", "f3"}));
}

TEST_F(Recent, AMenuListsThemAndTellsTheChoice) {
    QMenu menu;
    RecentMenu recent(menu, files, nullptr);
    EXPECT_FALSE(menu.isEnabled());
    QString chosen;
    QObject::connect(&recent, &RecentMenu::chosen, &recent, [&](const QString& path) { chosen = path; });
    files.add(make("this & that.docx"));
    ASSERT_EQ(menu.actions().size(), 1);
    EXPECT_TRUE(menu.isEnabled());
    EXPECT_TRUE(menu.actions().first()->text().startsWith(QLatin1String("&1 this && that.docx (")));
    menu.actions().first()->trigger();
    EXPECT_EQ(chosen.toStdString(), folder / "this & that.docx");
}

}  // namespace
}  // namespace mergeloom
