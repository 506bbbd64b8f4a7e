#include "base/AutomationError.h"
#include "doubles/FaultyFileStore.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;
using word::WdSaveFormat;

const std::string kMacros(3000, '\x7F');
const std::string kMacroPart = "/word/vbaProject.bin";
const std::string kMacroDocument = "application/vnd.ms-word.document.macroEnabled.main+xml";

std::string fileOfType(const std::string& mainType, bool hasMacros) {
    opc::Package package = opc::Package::read(wordFile("<w:p/>"), "a");
    package.contentTypes().setOverride(kMainPart, mainType);
    if (hasMacros) {
        package.addPart(kMacroPart, "application/vnd.ms-office.vbaProject", kMacros);
        package.relationshipsOf(kMainPart).addPart(
            "http://schemas.microsoft.com/office/2006/relationships/vbaProject", kMacroPart);
    }
    return packageBytes(package);
}

std::string errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return "no error";
}

TEST(Saving, macrosStayWhereTheirKindHasAPlaceForThem) {
    MemoryFileStore files{{{"/a.docm", fileOfType(kMacroDocument, true)}, {"/b.dotx", "precious"}}};
    const word::ApplicationPtr application = embedded::makeWordApplication(files);
    const word::DocumentPtr document = application->Documents()->Open("/a.docm");
    application->Selection()->TypeText("x");
    EXPECT_THAT(errorOf([&] { document->SaveAs("/b.dotx", WdSaveFormat::wdFormatXMLTemplate); }),
                HasSubstr("macros"));
    EXPECT_THAT(errorOf([&] { document->SaveAs("/b.pdf", static_cast<WdSaveFormat>(17)); }),
                HasSubstr("another office"));
    EXPECT_EQ(files.files["/b.dotx"], "precious");
    EXPECT_EQ(document->FullName(), "/a.docm");
    document->SaveAs("/b.dotm", WdSaveFormat::wdFormatXMLTemplateMacroEnabled);
    const opc::Package saved = opc::Package::read(files.files["/b.dotm"], "/b.dotm");
    EXPECT_EQ(saved.readPart(kMacroPart), kMacros);
    EXPECT_EQ(saved.contentTypes().of(kMainPart),
              "application/vnd.ms-word.template.macroEnabledTemplate.main+xml");
    document->Save();
    EXPECT_TRUE(document->Saved());
    EXPECT_EQ(files.files["/a.docm"], fileOfType(kMacroDocument, true));
}

TEST(Saving, aFailureLeavesTheTargetAndTheDocumentWhole) {
    MemoryFileStore disk{{{"/a.docx", wordFile("<w:p/>")}}};
    const std::string before = disk.files["/a.docx"];
    bool hasFailed = true;
    int call = 1;
    for (; hasFailed; ++call) {
        disk.files = {{"/a.docx", before}, {"/b.dotx", "precious"}};
        FaultyFileStore files(disk, call);
        const word::ApplicationPtr application = embedded::makeWordApplication(files);
        try {
            const word::DocumentPtr document = application->Documents()->Open("/a.docx");
            application->Selection()->TypeText("x");
            EXPECT_THAT(errorOf([&] { document->SaveAs("/b.dotx", WdSaveFormat::wdFormatXMLTemplate); }),
                        testing::AnyOf(HasSubstr("disk is full"), "no error"));
            if (files.hasFailed()) {
                EXPECT_EQ(disk.files["/b.dotx"], "precious");
                EXPECT_FALSE(document->Saved());
                document->Save();
                const opc::Package saved = opc::Package::read(disk.files["/a.docx"], "/a.docx");
                EXPECT_THAT(saved.contentTypes().of(kMainPart), HasSubstr("document.main")) << "no template";
                EXPECT_EQ(shownBody(disk.files["/a.docx"]), "x\n");
            }
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
        }
        hasFailed = files.hasFailed();
    }
    EXPECT_GT(call, 4);
}

TEST(Saving, refusesWhatItCannotEditSafely) {
    const std::string sheet = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml";
    opc::Package bodiless = opc::Package::read(wordFile(""), "a");
    bodiless.writePart(
        kMainPart, "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"/>");
    opc::Package isSigned = opc::Package::read(wordFile(""), "a");
    isSigned.addPart("/_xmlsignatures/origin.sigs", "application/xml", "");
    const std::map<std::string, std::string> cases = {
        {"no Word document", fileOfType(sheet, false)},
        {"digitally signed", packageBytes(isSigned)},
        {"no body", packageBytes(bodiless)},
        {"not well-formed", wordFile("<w:p>")},
    };
    MemoryFileStore files;
    const word::ApplicationPtr application = embedded::makeWordApplication(files);
    for (const auto& [why, bytes] : cases) {
        files.files["/a.docx"] = bytes;
        const std::string error = errorOf([&] { application->Documents()->Open("/a.docx"); });
        EXPECT_THAT(error, testing::AllOf(HasSubstr("/a.docx"), HasSubstr(why.substr(why.find(' ') + 1))));
    }
    EXPECT_EQ(application->Documents()->Count(), 0);
}

}  // namespace
}  // namespace mergeloom
