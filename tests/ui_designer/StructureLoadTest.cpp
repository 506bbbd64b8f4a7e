#include "app/modMain.h"
#include "base/AutomationError.h"
#include "doubles/RecordingMessages.h"
#include "doubles/ScriptedFileDialog.h"
#include "doubles/TemporaryFolder.h"
#include "ui/designer/StructureLoad.h"
#include "ui/dialogs/OpenFileName.h"
#include "xml/RecordingErrorHandler.h"

#include <gmock/gmock.h>

#include <QStandardPaths>
#include <QTest>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Returns a document with one control and the folders in its options.
std::string document(const std::string& form, const std::string& folders) {
    return "<db><Form Name='" + form + "' CurrentView='1'><Control Name='c' ControlType='Textbox'/></Form>" +
           (folders.empty() ? "" : "<Options><FileLocations " + folders + "/></Options>") + "</db>";
}

ScriptedFileDialog::Answer choose(const std::string& path) {
    return [=](OpenFileName& record, OpenFileTexts& texts) {
        fillWithFile(record, texts, path);
        return true;
    };
}

class StructureLoading : public testing::Test {
  protected:
    void SetUp() override {
        folder_.put("a.xml", document("A", "DocumentsFolder='/a/doc' TemplatesFolder='/a/dot'"));
        folder_.put("b.xml", document("B", "DocumentsFolder='/b/doc' TemplatesFolder='/b/dot'"));
        folder_.put("broken.xml", "<db><Form></db>");
        folder_.put("empty.xml", "<db><Options><FileLocations/></Options></db>");
        QObject::connect(&load_, &StructureLoad::started, &load_, [this] { events_.push_back("started"); });
        QObject::connect(&load_, &StructureLoad::ended, &load_, [this] { events_.push_back("ended"); });
        QObject::connect(&load_, &StructureLoad::loaded, &load_, [this](const auto& structure) {
            events_.push_back("loaded");
            structure_ = structure;
        });
    }
    void TearDown() override { gExcelMode = 0; }

    void finish() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !load_.isLoading(); }));
    }
    void loadFile(const std::string& name) {
        load_.load(folder_ / name);
        finish();
    }
    void click(const std::string& name) {
        dialog_ = std::make_unique<ScriptedFileDialog>(std::vector{choose(folder_ / name)});
        load_.cmdLoadXML_Click();
        finish();
    }
    /// Returns the top level of the tree that was shown last.
    [[nodiscard]] std::vector<std::string> topLevel() const {
        std::vector<std::string> texts;
        for (const TreeNode* node = structure_->tree.First(); node != nullptr; node = node->Next())
            texts.push_back(node->Text());
        return texts;
    }

    /// Runs before the dialog of the current click.
    class CurrentDialog final : public FileDialog {
      public:
        explicit CurrentDialog(std::unique_ptr<ScriptedFileDialog>& dialog) : dialog_(dialog) {}
        bool show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) override {
            return dialog_->show(kind, record, texts);
        }

      private:
        std::unique_ptr<ScriptedFileDialog>& dialog_;
    };

    TemporaryFolder folder_;
    std::unique_ptr<ScriptedFileDialog> dialog_;
    CurrentDialog currentDialog_{dialog_};
    RecordingMessages messages_;
    RecordingErrorHandler errors_;
    StructureLoad load_{currentDialog_, messages_, errors_};
    std::shared_ptr<LoadedStructure> structure_;
    std::vector<std::string> events_;
};

TEST_F(StructureLoading, ShowsTheSpecialNodesAndTheDocument) {
    load_.load(folder_ / "a.xml");
    EXPECT_THAT(events_, ElementsAre("started")) << "the work is done elsewhere";
    EXPECT_TRUE(load_.isLoading());
    finish();
    EXPECT_THAT(events_, ElementsAre("started", "loaded", "ended"));
    EXPECT_THAT(topLevel(), ElementsAre("Special", "Form \"A\""));

    const TreeNode& special = *structure_->tree.First();
    EXPECT_EQ(special.Tag(), "NoDrag");
    EXPECT_EQ(special.Key() + special.Image(), "");
    for (const TreeNode* child : {special.Child(), special.Child()->Next()})
        EXPECT_EQ(child->Tag(), child->Text());
    EXPECT_EQ(special.Child()->Text(), "Optional Space");
    EXPECT_EQ(special.Child()->Next()->Text(), "Optional Carriage Return");

    const TreeNode& form = *structure_->tree.Item(structure_->firstObject);
    EXPECT_EQ(form.Key(), "1k");
    EXPECT_EQ(form.Image(), "Form");
    EXPECT_EQ(form.Child()->Image(), "Textbox");
    EXPECT_EQ(structure_->xmlNodes.Item("2k").namedAttribute("Name"), "c");
    EXPECT_EQ(load_.documentsFolder(), "/a/doc");
    EXPECT_EQ(load_.templatesFolder(), "/a/dot");
    EXPECT_THAT(messages_.messages, IsEmpty());
    EXPECT_THAT(errors_.reports, IsEmpty());
}

TEST_F(StructureLoading, ExcelModeHasNoSpecialNodes) {
    gExcelMode = 1;
    loadFile("a.xml");
    EXPECT_THAT(topLevel(), ElementsAre("Form \"A\""));
    EXPECT_EQ(structure_->firstObject, 1);
}

TEST_F(StructureLoading, ASecondLoadTakesTheFirstOnesPlace) {
    loadFile("a.xml");
    loadFile("b.xml");
    EXPECT_THAT(events_, ElementsAre("started", "loaded", "ended", "started", "loaded", "ended"));
    EXPECT_THAT(topLevel(), ElementsAre("Special", "Form \"B\""));
    EXPECT_EQ(load_.documentsFolder(), "/b/doc");
    EXPECT_EQ(load_.templatesFolder(), "/a/dot") << "one was set already";

    events_.clear();
    load_.load(folder_ / "a.xml");
    load_.load(folder_ / "b.xml");
    finish();
    QTest::qWait(30);
    EXPECT_THAT(events_, ElementsAre("started", "ended", "started", "loaded", "ended"));
    EXPECT_THAT(topLevel(), ElementsAre("Special", "Form \"B\""));
}

TEST_F(StructureLoading, AFileThatCannotBeReadLeavesTheTreeCleared) {
    for (const char* name : {"broken.xml", "missing.xml"}) {
        events_.clear();
        messages_.messages.clear();
        loadFile(name);
        EXPECT_THAT(events_, ElementsAre("started", "ended"));
        ASSERT_EQ(messages_.messages.size(), 1U);
        const Message& message = messages_.messages.front();
        EXPECT_THAT(message.text, HasSubstr(name));
        EXPECT_EQ(message.icon, MessageIcon::None);
        EXPECT_EQ(message.buttons, MessageButtons::Ok);
    }
    EXPECT_THAT(errors_.reports, IsEmpty());
}

TEST_F(StructureLoading, ADocumentWithoutObjectsIsIncorrect) {
    loadFile("empty.xml");
    EXPECT_THAT(topLevel(), ElementsAre("Special"));
    EXPECT_EQ(structure_->firstObject, 0);
    ASSERT_EQ(messages_.messages.size(), 1U);
    EXPECT_EQ(messages_.messages.front().text, "XML file is incorrect");
    EXPECT_EQ(messages_.messages.front().icon, MessageIcon::Exclamation);
    EXPECT_THAT(errors_.reports, IsEmpty());
}

TEST_F(StructureLoading, ADocumentWithoutOptionsUsesTheUsersFolder) {
    const std::string own = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
    folder_.put("bare.xml", document("Bare", ""));
    loadFile("bare.xml");
    EXPECT_THAT(topLevel(), ElementsAre("Special", "Form \"Bare\""));
    EXPECT_THAT(errors_.reports, IsEmpty());
    EXPECT_EQ(messages_.texts(), "");
    EXPECT_EQ(load_.documentsFolder(), own);
    EXPECT_EQ(load_.templatesFolder(), own);

    load_.setTemplatesFolder("/given");
    loadFile("bare.xml");
    EXPECT_EQ(load_.templatesFolder(), "/given");
}

TEST_F(StructureLoading, OtherErrorsAreReportedOnceTheTreeIsShown) {
    folder_.put("views.xml",
                "<db><Form Name='A'/><Form CurrentView='x'/><Form CurrentView='y'/><Options><FileLocations/>"
                "</Options></db>");
    loadFile("views.xml");
    ASSERT_EQ(errors_.reports.size(), 1U) << "one mistake is told once, however often it is made";
    EXPECT_EQ(errors_.reports.front().comment, "1 more like this");
}

TEST_F(StructureLoading, WhatIsCancelledIsNotShown) {
    load_.load(folder_ / "a.xml");
    load_.cancel();
    EXPECT_FALSE(load_.isLoading());
    EXPECT_THAT(events_, ElementsAre("started", "ended"));
    QTest::qWait(50);
    EXPECT_THAT(events_, ElementsAre("started", "ended"));
    EXPECT_EQ(load_.documentsFolder(), "");
    load_.cancel();
    EXPECT_THAT(events_, ElementsAre("started", "ended")) << "nothing is loading";
}

TEST_F(StructureLoading, TheButtonAsksForAFile) {
    click("a.xml");
    ASSERT_EQ(dialog_->questions.size(), 1U);
    const auto& asked = dialog_->questions.front();
    EXPECT_EQ(asked.kind, FileDialogKind::Open);
    EXPECT_EQ(asked.texts.lpstrTitle, "Load");
    EXPECT_EQ(asked.texts.lpstrFilter,
              std::string("XML Documents (*.xml)\0*.xml\0All Files (*.*)\0*.*\0", 48));
    EXPECT_THAT(topLevel(), ElementsAre("Special", "Form \"A\""));

    events_.clear();
    dialog_ = std::make_unique<ScriptedFileDialog>();
    load_.cmdLoadXML_Click();
    EXPECT_THAT(events_, IsEmpty()) << "the Cancel button leaves the tree as it is";
}

TEST_F(StructureLoading, LoadsByTheButtonBringTheTemplatesFolderFromTheSecondOn) {
    load_.setTemplatesFolder("/given");
    click("a.xml");
    EXPECT_EQ(load_.templatesFolder(), "/given");
    EXPECT_EQ(load_.documentsFolder(), "/a/doc");
    click("b.xml");
    EXPECT_EQ(load_.templatesFolder(), "/b/dot");
}

TEST_F(StructureLoading, EndsInTheMiddleOfALoad) {
    RecordingMessages messages;
    std::string big = "<db><Form Name='Big'>";
    for (int i = 0; i < 20000; ++i)
        big += "<Control Name='c'/>";
    folder_.put("big.xml", big + "</Form></db>");
    {
        StructureLoad load(currentDialog_, messages, errors_);
        load.load(folder_ / "big.xml");
        load.load(folder_ / "a.xml");
    }
    QTest::qWait(30);
    EXPECT_THAT(messages.messages, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
