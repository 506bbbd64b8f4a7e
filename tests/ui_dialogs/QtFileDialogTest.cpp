#include "doubles/ModalUser.h"
#include "doubles/TemporaryFolder.h"
#include "ui/dialogs/ComDlg.h"
#include "ui/dialogs/QtFileDialog.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

namespace mergeloom {
namespace {

using testing::ElementsAre;

/// Types a name into the toolkit's own dialog and presses Return.
void typeName(QWidget& window, const std::string& name) {
    auto* edit = window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(edit, nullptr);
    edit->setText(QString::fromStdString(name));
    QTest::keyClick(edit, Qt::Key_Return);
}

ModalUser::Step type(const std::string& name) {
    return [=](QWidget& window) { typeName(window, name); };
}

void cancel(QWidget& window) {
    dynamic_cast<QDialog&>(window).reject();
}

ModalUser::Step answer(QMessageBox::StandardButton button, const std::string& expectedText) {
    return [=](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_THAT(box.text().toStdString(), testing::HasSubstr(expectedText));
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    };
}

class QtFileDialogTest : public testing::Test {
  protected:
    QtFileDialogTest() {
        folder.put("a.docx", "a");
        folder.put("b.htm", "b");
        folder.put("c.html", "c");
        folder.put("plain", "p");
        comDlg.SetDirectory(folder.path());
        comDlg.SetFilter("Word|*.docx|Web|*.htm;*.html|All|*.*");
    }

    TemporaryFolder folder;
    QtFileDialog dialog{nullptr};
    ComDlg comDlg{dialog};
};

TEST_F(QtFileDialogTest, OpensOneFile) {
    comDlg.SetFilterIndex(2);
    comDlg.SetDialogTitle("Pick a page");
    const ModalUser user({[](QWidget& window) {
        auto& shown = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(shown.windowTitle(), QStringLiteral("Pick a page"));
        const auto* types = shown.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_NE(types, nullptr);
        EXPECT_EQ(types->currentText(), QStringLiteral("Web"));
        typeName(window, "b.htm");
    }});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileName(), folder / "b.htm");
    EXPECT_EQ(comDlg.FileTitle(), "b.htm");
    EXPECT_EQ(comDlg.Directory(), folder.path());
    EXPECT_EQ(comDlg.Extension(), "htm");
    EXPECT_EQ(comDlg.FilterIndex(), 2);
}

TEST_F(QtFileDialogTest, ShowsTheFilesOfTheFilter) {
    const std::vector<std::pair<int, QStringList>> cases = {
        {1, {QStringLiteral("a.docx")}},
        {2, {QStringLiteral("b.htm"), QStringLiteral("c.html")}},
        {3,
         {QStringLiteral("a.docx"), QStringLiteral("b.htm"), QStringLiteral("c.html"),
          QStringLiteral("plain")}}};
    for (const auto& [index, expected] : cases) {
        comDlg.SetFilterIndex(index);
        const ModalUser user({[expected = expected](QWidget& window) {
            const auto* view = window.findChild<QAbstractItemView*>(QStringLiteral("listView"));
            ASSERT_NE(view, nullptr);
            const auto names = [&] {
                QStringList shown;
                for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                    shown += view->model()->index(row, 0, view->rootIndex()).data().toString();
                shown.sort();
                return shown;
            };
            EXPECT_TRUE(QTest::qWaitFor([&] { return names() == expected; }, 2000))
                << names().join(QLatin1Char(' ')).toStdString();
            cancel(window);
        }});
        EXPECT_FALSE(comDlg.ShowOpen());
    }
}

TEST_F(QtFileDialogTest, FindsAFileWithoutItsExtension) {
    comDlg.SetExtension("docx");
    const ModalUser user({type("a")});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileName(), folder / "a.docx");
}

TEST_F(QtFileDialogTest, OpensSeveralFiles) {
    comDlg.SetAllowMultiSelect(true);
    comDlg.SetFilterIndex(2);
    {
        const ModalUser user({type("\"b.htm\" \"c.html\"")});
        ASSERT_TRUE(comDlg.ShowOpen());
    }
    EXPECT_THAT(comDlg.FileNames(), ElementsAre(folder / "b.htm", folder / "c.html"));
    EXPECT_THAT(comDlg.FileTitles(), ElementsAre("b.htm", "c.html"));
    EXPECT_EQ(comDlg.Directory(), folder.path());

    const ModalUser user({type("c.html")});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileTitle(), "c.html") << "one of several is a single file";
    EXPECT_THAT(comDlg.FileNames(), ElementsAre(folder / "c.html"));
}

TEST_F(QtFileDialogTest, AFileThatMustExist) {
    comDlg.SetExistFlags(OFN_FILEMUSTEXIST);
    const ModalUser user({type("missing.docx"), answer(QMessageBox::Ok, "missing.docx"), type("a.docx")});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileTitle(), "a.docx");
}

TEST_F(QtFileDialogTest, TheExtensionOfASavedFile) {
    struct Case {
        std::string typed;
        int filterIndex;
        std::string extension;
        std::string saved;
    };
    const Case cases[] = {{"new", 1, "docx", "new.docx"},
                          {"Offer No. 5", 1, "docx", "Offer No. 5.docx"},
                          {"new.xml", 1, "docx", "new.xml"},
                          {"new", 2, "docx", "new.htm"},
                          {"new.html", 2, "x", "new.html"},
                          {"new", 3, "docx", "new.doc"},
                          {"new", 1, "", "new"}};
    for (const Case& row : cases) {
        comDlg.SetExtension(row.extension);
        comDlg.SetFilterIndex(row.filterIndex);
        const ModalUser user({type(row.typed)});
        ASSERT_TRUE(comDlg.ShowSave());
        EXPECT_EQ(comDlg.FileName(), folder / row.saved);
    }
}

TEST_F(QtFileDialogTest, TheExtensionFollowsTheFilterThatIsChosen) {
    comDlg.SetExtension("docx");
    const ModalUser user({[](QWidget& window) {
        QTest::keyClick(window.findChild<QComboBox*>(QStringLiteral("fileTypeCombo")), Qt::Key_Down);
        typeName(window, "page");
    }});
    ASSERT_TRUE(comDlg.ShowSave());
    EXPECT_EQ(comDlg.FileTitle(), "page.htm");
    EXPECT_EQ(comDlg.FilterIndex(), 2);
}

TEST_F(QtFileDialogTest, AsksBeforeAFileIsReplaced) {
    comDlg.SetExtension("docx");
    {
        // The file that would be replaced is the one with the extension.
        const ModalUser user({type("a"), answer(QMessageBox::No, folder / "a.docx"), type("other")});
        ASSERT_TRUE(comDlg.ShowSave());
        EXPECT_EQ(comDlg.FileTitle(), "other.docx");
    }
    const ModalUser user({type("a.docx"), answer(QMessageBox::Yes, folder / "a.docx")});
    ASSERT_TRUE(comDlg.ShowSave());
    EXPECT_EQ(comDlg.FileTitle(), "a.docx");
    EXPECT_EQ(folder.bytesOf("a.docx"), "a") << "the dialog itself replaces nothing";
}

TEST_F(QtFileDialogTest, AFolderThatMustExist) {
    const ModalUser user({type(folder / "none/a.docx"), answer(QMessageBox::Ok, folder / "none"), &cancel});
    EXPECT_FALSE(comDlg.ShowSave());
    EXPECT_EQ(comDlg.FileName(), "");
}

TEST_F(QtFileDialogTest, TheCheckBox) {
    comDlg.SetCheckBoxVisible(true);
    const ModalUser user({[](QWidget& window) {
        auto* box = window.findChild<QCheckBox*>();
        ASSERT_NE(box, nullptr);
        EXPECT_FALSE(box->isChecked());
        box->click();
        typeName(window, "a.docx");
    }});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_TRUE(comDlg.CheckBoxSelected());
}

TEST_F(QtFileDialogTest, LongPathsComeBackWhole) {
    const std::string deep = folder / std::string(200, 'f');
    std::filesystem::create_directory(deep);
    const std::string path = deep + "/" + std::string(200, 't') + ".docx";
    std::ofstream(path) << "x";
    const ModalUser user({type(path)});
    ASSERT_TRUE(comDlg.ShowOpen());
    EXPECT_EQ(comDlg.FileName(), path);
    EXPECT_EQ(comDlg.Directory(), deep);
    EXPECT_EQ(comDlg.Extension(), "docx");
}

}  // namespace
}  // namespace mergeloom
