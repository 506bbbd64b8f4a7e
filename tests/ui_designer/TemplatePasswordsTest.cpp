#include "ui_designer/TemplateScene.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

/// Templates that have the password "right".
class TemplatePasswordsTest : public TemplateScene {
  protected:
    std::string makeProtected(const std::string& name) {
        std::string path = makeTemplate(name);
        host().passwords[path] = "right";
        return path;
    }
};

TEST_F(TemplatePasswordsTest, AWrongPasswordAsksAgain) {
    const std::string path = makeProtected("secret.docx");
    lifecycle->Start();
    passwords.answers = {"wrong", "Right", "right"};
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_THAT(passwords.questions,
                ElementsAre(Pair(path, PasswordAttempt::First), Pair(path, PasswordAttempt::Again),
                            Pair(path, PasswordAttempt::Again)));
    EXPECT_EQ(lifecycle->TemplatePath(), path);
    EXPECT_THAT(caption.used, ElementsAre(path));
    EXPECT_EQ(messages.takeTexts(), "");
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplatePasswordsTest, WithoutAPasswordTheFormerDocumentStays) {
    const std::string former = makeTemplate("letter.docx");
    const std::string path = makeProtected("secret.docx");
    lifecycle->Start();
    lifecycle->OpenTemplate(former);
    passwords.answers = {"wrong"};
    EXPECT_FALSE(lifecycle->OpenTemplate(path));
    EXPECT_EQ(passwords.questions.size(), 2U);
    EXPECT_EQ(lifecycle->TemplatePath(), former);
    EXPECT_EQ(host().hostedName(), former);
    EXPECT_EQ(caption.text, "letter.docx");
    EXPECT_THAT(caption.used, ElementsAre(former));
    EXPECT_THAT(messages.takeTexts(), IsEmpty());
    EXPECT_THAT(errors.reports, IsEmpty());
}

TEST_F(TemplatePasswordsTest, AnotherFileAndALaterOpeningAskAnew) {
    const std::string path = makeProtected("secret.docx");
    lifecycle->Start();
    passwords.answers = {"right", "right"};
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_TRUE(lifecycle->Restart()) << "the office died";
    EXPECT_EQ(passwords.questions.size(), 1U);
    EXPECT_TRUE(lifecycle->CloseTemplate());
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_EQ(passwords.questions.size(), 2U);
    EXPECT_FALSE(lifecycle->OpenTemplate(makeProtected("other.docx")));
    EXPECT_EQ(passwords.questions.size(), 3U);
}

TEST_F(TemplatePasswordsTest, AKeptCopyAsksForThePasswordOfItsFile) {
    const std::string path = makeProtected("secret.docx");
    KeptCopies other(disk, folder / "kept");
    const std::string copy = other.pathFor(path, "odt");
    host().keepCopy(copy);
    other.release();
    host().passwords[copy] = "right";

    messages.answers = {MessageAnswer::Yes};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_THAT(passwords.questions, ElementsAre(Pair(path, PasswordAttempt::First)));
    EXPECT_EQ(lifecycle->TemplatePath(), "");
    EXPECT_TRUE(disk.fileExists(copy)) << "it is offered again";

    makeLifecycle();
    messages.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
    passwords.answers = {"right"};
    EXPECT_TRUE(lifecycle->Start());
    EXPECT_EQ(lifecycle->TemplatePath(), path);
    EXPECT_FALSE(host().hosted()->Saved());
}

TEST_F(TemplatePasswordsTest, ProtectionIsGivenUpOnlyWhenTheUserSaysSo) {
    const std::string path = makeProtected("secret.docx");
    const std::string target = folder / "open.rtf";
    host().unprotectedFormats = {static_cast<int>(wordFormatOf(target))};
    chooseFiles({target, target});
    lifecycle->Start();
    passwords.answers = {"right"};
    lifecycle->OpenTemplate(path);

    messages.answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Asked));
    EXPECT_THAT(messages.takeTexts(), HasSubstr("“open.rtf” will not be protected by the password"));
    EXPECT_FALSE(disk.fileExists(target));
    EXPECT_EQ(lifecycle->TemplatePath(), path);

    messages.answers = {MessageAnswer::Ok};
    lifecycle->SaveTemplate(SaveTarget::Asked);
    EXPECT_EQ(messages.messages.size(), 1U);
}

TEST_F(TemplatePasswordsTest, AFileThatIsProtectedAgainstChangesIsOnlyRead) {
    const std::string path = makeTemplate("form.docx");
    host().protectedFiles = {path};
    lifecycle->Start();
    EXPECT_TRUE(lifecycle->OpenTemplate(path));
    EXPECT_THAT(messages.takeTexts(), HasSubstr("“form.docx” is protected against changes."));
    EXPECT_EQ(caption.text, "form.docx (read-only)");
    EXPECT_FALSE(lifecycle->SaveTemplate(SaveTarget::Same)) << "another name is asked for";
    EXPECT_EQ(dialog->questions.size(), 1U);
}

TEST_F(TemplatePasswordsTest, AnEncryptedTemplateIsNotConverted) {
    const std::string path = folder / "secret.dotx";
    folder.put("secret.dotx", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on");
    EXPECT_EQ(office->fileToOpen(path), path);
    EXPECT_TRUE(disk.fileExists(path));
}

}  // namespace
}  // namespace mergeloom
