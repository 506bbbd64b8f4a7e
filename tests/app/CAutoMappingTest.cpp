#include "AutoMappingTest.h"
#include "app/MappingArguments.h"
#include "app/MergeloomErrorCodes.h"
#include "doubles/FaultyWord.h"
#include "doubles/WordFiles.h"
#include "office/model/word/Document.h"

#include <gtest/gtest.h>

#include <vector>

namespace mergeloom {
namespace {

class AutoMapping : public AutoMappingTest {
  protected:
    void putDocuments() override {
        folder.put("given.docx", wordFile("<w:p><w:r><w:t>Dear </w:t></w:r></w:p>"));
        folder.put("other.docx", wordFile("<w:p><w:r><w:t>Other</w:t></w:r></w:p>"));
    }
};

TEST_F(AutoMapping, RefusesWithTheNumbersOfItsErrors) {
    struct Case {
        std::vector<std::string> arguments;
        ErrorNumber expected;
    };
    const std::string target = "%/new.dotx";
    const std::vector<Case> cases{
        {{"-hidden"}, kXmlFileNotDefined},
        {{"-hidden", "-xmlfile", "%/none.xml", "-template", target}, kXmlFileDoesNotExist},
        {{"-hidden", "-xmlfile", "%/none.xml", "-usedocument", "%/none.docx"}, kXmlFileDoesNotExist},
        {{"-hidden", "-xmlfile", "%/empty.xml", "-template", target}, kXmlFileIncorrect},
        {{"-hidden", "-xmlfile", "%/broken.xml", "-template", target}, kXmlFileIncorrect},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-usedocument", "%/none.docx"}, kUseDocumentDoesNotExist},
        {{"-hidden", "-xmlfile", "%/letter.xml"}, kTemplateNotDefined},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template"}, kTemplateNotDefined},
        {{"-xmlfile", "%/letter.xml", "-usedocument", "%/given.docx", "-template"}, kTemplateNotDefined},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template", "%/"}, kTemplateNotDefined},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template", "%"}, kTemplateNotDefined},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template", "%/no/new.dotx"}, kTemplateFolderDoesNotExist},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template", "%/exists.dotx"}, kTemplateAlreadyExists},
        {{"-hidden", "-xmlfile", "%/letter.xml", "-template", target, "-label", "%/none.docx"},
         kLabelDocumentDoesNotExist},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(run(c.arguments), c.expected) << testing::PrintToString(c.arguments);
        EXPECT_EQ(startedWords, 0) << testing::PrintToString(c.arguments);
    }
    EXPECT_EQ(folder.entryCount(), entriesBefore);
    EXPECT_EQ(folder.bytesOf("exists.dotx"), "precious");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(AutoMapping, TellsWhyADocumentDoesNotLoad) {
    run({"-xmlfile", "%/broken.xml", "-template", "%/new.dotx"});
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_NE(messages.messages[0].text.find("broken.xml"), std::string::npos) << messages.texts();
}

TEST_F(AutoMapping, MakesATemplate) {
    EXPECT_EQ(run({"-hidden", "-xmlfile", "%/letter.xml", "-template", "%/new.dotx"}), 0U);
    EXPECT_TRUE(made);
    EXPECT_EQ(shownBody(folder.bytesOf("new.dotx")), "Customer: [Customer:Customer]\n\n");
    EXPECT_EQ(templatesFolder, folder.path());
    EXPECT_EQ(documentsFolder, "/docs");
    EXPECT_EQ(messages.texts(), "");
    EXPECT_EQ(lastWord->Documents()->Count(), 0) << "the document is closed";
}

TEST_F(AutoMapping, TheLettersOfTheExtensionMayBeCapitals) {
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/NEW.DOTX"}), 0U);
    EXPECT_TRUE(made) << messages.texts();
}

TEST_F(AutoMapping, BuildsOnADocument) {
    const std::string given = folder.bytesOf("given.docx");
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/new.docx", "-usedocument", "%/given.docx"}),
              0U);
    EXPECT_TRUE(made);
    EXPECT_EQ(folder.bytesOf("given.docx"), given);
    EXPECT_EQ(shownBody(folder.bytesOf("new.docx")), "Customer: [Customer:Customer]\nDear \n");
    EXPECT_EQ(templatesFolder, folder.path());
}

TEST_F(AutoMapping, ADocumentAloneIsChangedInPlace) {
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.docx"}), 0U);
    EXPECT_TRUE(made);
    EXPECT_EQ(shownBody(folder.bytesOf("given.docx")), "Customer: [Customer:Customer]\nDear \n");
    EXPECT_EQ(templatesFolder, "/templates");
}

TEST_F(AutoMapping, AnExistingTemplateIsBuiltOnWhereThatIsAllowed) {
    folder.put("old.dotx", folder.bytesOf("given.docx"));
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/old.dotx"}, true), 0U);
    EXPECT_TRUE(made) << messages.texts();
    EXPECT_EQ(shownBody(folder.bytesOf("old.dotx")), "Customer: [Customer:Customer]\nDear \n");
}

TEST_F(AutoMapping, TheSwitchesChooseWhatIsMade) {
    struct Case {
        std::vector<std::string> switches;
        std::string expected;
    };
    const std::string form = "A: [A:A]\n\n";
    const std::string table = "\n[SheetT:A\n|[A:A] \n|]\n";
    const std::string labels = "[A:A] Dear \n";
    const std::vector<Case> cases{
        {{"-hidden"}, table},
        {{"-hidden", "-listing"}, table},
        {{"-hidden", "FormView"}, form},
        {{"-hidden", "formview", "-listing"}, table},
        {{"-hidden", "-listing", "-label", "%/given.docx"}, table},
        {{"-hidden", "formview", "-label", "%/given.docx"}, form},
        {{"-hidden", "-label", "%/given.docx"}, labels},
        {{"-hidden", "-label", "%/given.docx", "-directory"}, labels},
        {{"-hidden", "-label", "%/given.docx", "-usedocument", "%/other.docx"}, "[A:A] Other\n"},
        {{"-hidden", "-directory"}, form},
    };
    int number = 0;
    for (const Case& c : cases) {
        const std::string target = "made" + std::to_string(++number) + ".dotx";
        std::vector<std::string> arguments{"-xmlfile", "%/sheet.xml", "-template", "%/" + target};
        arguments.insert(arguments.end(), c.switches.begin(), c.switches.end());
        EXPECT_EQ(run(arguments), 0U);
        ASSERT_TRUE(made) << testing::PrintToString(c.switches);
        EXPECT_EQ(shownBody(folder.bytesOf(target)), c.expected) << testing::PrintToString(c.switches);
    }
    EXPECT_TRUE(errors.reports.empty());
    EXPECT_EQ(messages.texts(), "");
}

TEST_F(AutoMapping, ADropThatIsRefusedWritesNothing) {
    EXPECT_EQ(run({"-hidden", "-xmlfile", "%/design.xml", "-template", "%/new.dotx"}), 0U);
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(), "Support for Design view is not realised yet.\n");
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(AutoMapping, AFieldListChoosesTheColumns) {
    folder.put(
        "abc.xml",
        "<db><Table Name='T' CurrentView='2'><Control Name='A'/><Control Name='B'/><Control Name='C'/>"
        "<Control Name='S' ControlType='Subform'><Form><Control Name='X'/></Form></Control></Table></db>");
    struct Case {
        std::vector<std::string> switches;
        ErrorNumber expectedError;
        std::string expected;  ///< empty: nothing is made
    };
    const std::vector<Case> cases{
        {{"-listing", "-fields", "B;a"}, 0, "\n[TT:B\n|A\n|[B:B] \n|[A:A] \n|]\n"},
        {{"-listing", "-fields", "C, none ,B"}, 0, "\n[TT:C\n|B\n|[C:C] \n|[B:B] \n|]\n"},
        {{"-listing", "-fields"}, 0, "\n[TT:A\n|B\n|C\n|[A:A] \n|[B:B] \n|[C:C] \n|]\n"},
        {{"-fields", "B"}, 0, "\n[TT:A\n|B\n|C\n|[A:A] \n|[B:B] \n|[C:C] \n|]\n"},
        {{"-listing", "-fields", "none;X"}, kFieldListIncorrect, ""},
        {{"-listing", "-fields", " ; ,"}, kFieldListNotDefined, ""},
        {{"-listing", "-fields", "A;S"}, 0, ""},
    };
    for (const Case& c : cases) {
        std::vector<std::string> arguments{"-hidden", "-xmlfile", "%/abc.xml", "-template", "%/abc.dotx"};
        arguments.insert(arguments.end(), c.switches.begin(), c.switches.end());
        EXPECT_EQ(run(arguments), c.expectedError) << testing::PrintToString(c.switches);
        EXPECT_EQ(made, !c.expected.empty()) << testing::PrintToString(c.switches);
        EXPECT_EQ(folder.entryCount(), entriesBefore + 1 + made);
        if (made) {
            EXPECT_EQ(shownBody(folder.bytesOf("abc.dotx")), c.expected);
        }
        std::filesystem::remove(folder / "abc.dotx");
    }
    const std::string lacks = "The list of fields names ";
    EXPECT_EQ(messages.texts(), lacks +
                                    "\"none\": Table \"T\" has no such field.\n"
                                    "The list of fields is not used: only -listing maps chosen fields.\n" +
                                    lacks +
                                    "\"none\", \"X\": Table \"T\" has no such field.\n"
                                    "The subform \"S\" cannot be a column of a table.\n");
}

TEST_F(AutoMapping, ALabelDocumentIsBuiltOnAndStaysAsItIs) {
    const std::string given = folder.bytesOf("given.docx");
    EXPECT_EQ(
        run({"-hidden", "-xmlfile", "%/sheet.xml", "-template", "%/new.docx", "-label", "%/given.docx"}), 0U);
    EXPECT_TRUE(made);
    EXPECT_EQ(folder.bytesOf("given.docx"), given);

    folder.put("bad.docx", "no zip");
    EXPECT_EQ(run({"-hidden", "-xmlfile", "%/sheet.xml", "-template", "%/more.docx", "-label", "%/bad.docx"}),
              kLabelDocumentIncorrect);
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_NE(messages.texts().find("bad.docx"), std::string::npos) << messages.texts();
    EXPECT_FALSE(std::filesystem::exists(folder / "more.docx"));
}

TEST_F(AutoMapping, WhatCannotBeWrittenIsRefusedBeforeTheWork) {
    for (const char* name : {"new", "new.", "new.foo", "new.pdf", "new.dot", "new.odt"}) {
        messages.messages.clear();
        EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", std::string("%/") + name}), 0U);
        EXPECT_FALSE(made) << name;
        ASSERT_EQ(messages.messages.size(), 1U) << name;
        EXPECT_NE(messages.messages[0].text.find(name), std::string::npos) << messages.texts();
    }
    EXPECT_EQ(folder.entryCount(), entriesBefore);
}

TEST_F(AutoMapping, ADocumentThatCannotBeReadEndsTheRun) {
    folder.put("bad.docx", "no zip");
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/bad.docx"}), 0U);
    EXPECT_FALSE(made);
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].module, "CAutoMapping");
    EXPECT_EQ(errors.reports[0].procedure, "Execute");
    EXPECT_NE(errors.reports[0].description.find("bad.docx"), std::string::npos);
    EXPECT_EQ(folder.bytesOf("bad.docx"), "no zip");
}

TEST_F(AutoMapping, ADocumentWithoutASelectionIsRefused) {
    CallCounter counter{1};
    wrap = [&](word::ApplicationPtr office) {
        return std::make_shared<FaultyApplication>(std::move(office), counter);
    };
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.docx"}), kLabelDocumentIncorrect);
}

TEST_F(AutoMapping, AFailingDiskLosesNothing) {
    EXPECT_GT(failAtEachCall("given.docx"), 3);
}

TEST_F(AutoMapping, ATemplateThatAppearsMeanwhileStays) {
    wrap = [&](word::ApplicationPtr office) {
        folder.put("new.dotx", "another's");
        return office;
    };
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-template", "%/new.dotx"}), kTemplateAlreadyExists);
    EXPECT_EQ(folder.bytesOf("new.dotx"), "another's");
}

TEST_F(AutoMapping, AFileThatIsOpenElsewhereIsNotReplaced) {
    const std::string given = folder.bytesOf("given.docx");
    folder.put(".~lock.given.docx#", "");
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml", "-usedocument", "%/given.docx"}), 0U);
    EXPECT_FALSE(made);
    EXPECT_EQ(messages.texts(),
              "Word cannot save the template given.docx because this file is already open elsewhere.\n");
    EXPECT_EQ(folder.bytesOf("given.docx"), given);
}

TEST_F(AutoMapping, FieldListsNameTheObjectsChildren) {
    folder.put("fields.xml",
               "<db><Table Name='T'><Control Name='a'/><Control Name='B'/><Control Name='c;d'/>"
               "<Control Name='A' Caption='second'/></Table></db>");
    MappingSource source{folder / "fields.xml", errors, messages};
    struct Case {
        std::string list;
        FieldKeys expected;
    };
    const std::vector<Case> cases{
        {"B,a", {"3k", "2k"}}, {"b;A", {"3k", "2k"}},       {"none,B,", {"3k"}},    {"a,c;d", {"2k", "4k"}},
        {"B,b", {"3k", "3k"}}, {" B ;\ta\n", {"3k", "2k"}}, {"B, a", {"3k", "2k"}},
    };
    for (const Case& c : cases) {
        const NamedFields named = fieldsNamed(*source.firstObject(), source.xmlNodes(), c.list);
        EXPECT_EQ(named.keys, c.expected) << c.list;
    }
    EXPECT_FALSE(listsFields(""));
    EXPECT_FALSE(listsFields("{empty}"));
    EXPECT_TRUE(listsFields("a"));
}

}  // namespace
}  // namespace mergeloom
