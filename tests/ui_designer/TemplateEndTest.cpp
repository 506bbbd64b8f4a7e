#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::IsEmpty;
using namespace std::string_literals;

using TemplateEnd = TemplateScene;

TEST_F(TemplateEnd, DeletesTheStructureDocument) {
    folder.put("structure.xml", "<Structure/>");
    setCommandLine({"-xmlfile", folder / "structure.xml", "-deletexmlfile"});
    lifecycle->Start();
    change();
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_TRUE(disk.fileExists(folder / "structure.xml")) << "the window stays";
    messages.answers = {MessageAnswer::No};
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_FALSE(disk.fileExists(folder / "structure.xml"));
    lifecycle->Terminate();
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateEnd, AnOfficeThatEndedKeepsNoWindowOpen) {
    lifecycle->Start();
    change();
    host().ended = true;
    EXPECT_TRUE(lifecycle->Unload());
    EXPECT_THAT(errors.reports, IsEmpty());
    EXPECT_THAT(messages.messages, IsEmpty());
}

TEST_F(TemplateEnd, AnOpenDialogOfTheOfficeComesFirst) {
    const auto sentence = [](const std::string& program) {
        return "Another " + program + " Application has an open dialog, please close that and then retry\n";
    };
    lifecycle->Start();
    change();
    host().calls.clear();
    host().isDialogOpen = true;
    for (const HostCommand command : {HostCommand::New, HostCommand::Open, HostCommand::Save,
                                      HostCommand::SaveAs, HostCommand::PrintPreview}) {
        lifecycle->Execute(command);
        EXPECT_EQ(messages.takeTexts(), sentence("Word"));
    }
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_EQ(messages.takeTexts(), sentence("Word"));
    EXPECT_THAT(host().calls, IsEmpty());

    useExcel();
    lifecycle->Start();
    EXPECT_FALSE(lifecycle->Unload());
    EXPECT_EQ(messages.takeTexts(), sentence("Excel"));
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplateEnd, ADialogThatOpensDuringTheQuestionComesFirst) {
    lifecycle->Start();
    change();
    messages.answers = {MessageAnswer::No};
    messages.whileShown = [this] { host().isDialogOpen = true; };
    lifecycle->Execute(HostCommand::New);
    EXPECT_EQ(callCount("CreateNew Word.Template.8"), 1);
}

TEST_F(TemplateEnd, CommandsThatAreDisabled) {
    lifecycle->Start();
    lifecycle->Execute(HostCommand::PrintPreview);
    EXPECT_EQ(messages.messages.back().icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.takeTexts(), "PrintPreview is disabled.\n");

    setCommandLine({"-template", folder / "letter.dotx"});
    host().calls.clear();
    lifecycle->Execute(HostCommand::New);
    lifecycle->Execute(HostCommand::Open);
    EXPECT_EQ(messages.messages.back().icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.takeTexts(),
              "The operation is disabled in this context.\nThe operation is disabled in this context.\n");
    EXPECT_THAT(host().calls, IsEmpty());
    EXPECT_THAT(dialog->questions, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
