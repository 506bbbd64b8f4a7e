#include "contract/word/WordFixture.h"

namespace mergeloom {
namespace {

constexpr auto kDocx = word::WdSaveFormat::wdFormatXMLDocument;

class OfficeDocuments : public WordOffice {
  protected:
    /// Everything that a step may change.
    std::string state() { return body() + names(*document->Bookmarks()) + " " + at(*selection->Range()); }
    void edit() {
        selection->TypeText("new\rtext");
        document->Bookmarks()->Add("New", *selection->Range());
        document->Bookmarks()->Add("Old", *selection->Range());
        bookmark("Gone")->Range()->SetText("");
        cell(1, 1, 1)->Range()->SetText("cell");
        document->Tables()->Item(1)->Rows()->Add();
        document->Tables()->Add(*selection->Range(), 1, 2);
    }
};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeDocuments, kOffices, nameOfOffice);

TEST_P(OfficeDocuments, TakeAStepBackAltogether) {
    open("<w:p>" + marked(1, "Old", run("old")) + marked(2, "Gone", run("gone")) + "</w:p>" +
         tableXml({cellXml(para("a")) + cellXml(para("b"))}) + para("end"));
    EXPECT_FALSE(document->Undo(1)) << "nothing was recorded";
    const std::string before = state();
    const word::BookmarkPtr old = bookmark("Old");
    for (const bool isKept : {false, true}) {
        document->SetSaved(true);
        application->UndoRecord()->StartCustomRecord("Drop");
        edit();
        application->UndoRecord()->EndCustomRecord();
        EXPECT_FALSE(document->Saved());
        EXPECT_NE(state(), before);
        if (isKept) break;
        EXPECT_TRUE(document->Undo(1));
        EXPECT_EQ(state(), before);
        EXPECT_EQ(old->Range()->Text(), "old");
        EXPECT_FALSE(document->Undo(1));
    }
    EXPECT_EQ(at(*selection->Range()), at("Old"));
}

TEST_P(OfficeDocuments, KnowTheirFilesAndWhetherTheyAreSaved) {
    add();
    EXPECT_EQ(application->Name(), "Microsoft Word");
    EXPECT_EQ(document->Name(), "Document1");
    EXPECT_TRUE(document->Saved());
    EXPECT_EQ(errorOf([&] { document->Save(); }), kFileCouldNotBeSaved);
    selection->TypeText("one");
    EXPECT_FALSE(document->Saved());
    document->SaveAs("/folder/one.docx", kDocx);
    EXPECT_TRUE(document->Saved());
    EXPECT_EQ(document->Name() + " " + document->FullName(), "one.docx /folder/one.docx");
    selection->TypeText(" two");
    document->Close(word::WdSaveOptions::wdSaveChanges);
    EXPECT_EQ(application->Documents()->Count(), 0);
    EXPECT_EQ(errorOf([&] { application->Selection(); }), kNotAvailable);
    document->Close(word::WdSaveOptions::wdDoNotSaveChanges);

    document = application->Documents()->Add("/folder/one.docx");
    EXPECT_EQ(document->Name(), "Document2");
    EXPECT_EQ(body(), "one two\n");
    document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    document = application->Documents()->Open("/folder/one.docx");
    application->Selection()->TypeText("zero ");
    document->Save();
    EXPECT_EQ(shownBody(files.files["/folder/one.docx"]), "zero one two\n");
    application->Selection()->TypeText("lost");
    application->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
    EXPECT_EQ(shownBody(files.files["/folder/one.docx"]), "zero one two\n");
}

TEST_P(OfficeDocuments, ComeBackAsTheyWereSaved) {
    open("<w:p>" + marked(1, "Before", run("a")) + "</w:p>" +
         tableXml({cellXml("<w:p>" + marked(2, "InCell", run("b")) + "</w:p>") + cellXml(para("c"))}) +
         "<w:p>" +
         marked(3, "Outer",
                run("d") + marked(4, "Inner", run("e")) + run("g") + marked(5, "Empty", "") + run("f")) +
         "</w:p>");
    const std::string before = body();
    EXPECT_EQ(before, "[Before:a]\n[InCell:b]\n|c\n|[Outer:d[Inner:e]g[Empty:]f]\n");
    for (const auto format : {kDocx, word::WdSaveFormat::wdFormatXMLTemplate}) {
        EXPECT_TRUE(application->canSaveAs(format));
        document->SaveAs("/again.dotx", format);
        document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
        document = application->Documents()->Open("/again.dotx");
        EXPECT_EQ(body(), before);
        EXPECT_EQ(at("Inner"), "8-9");
    }
}

TEST_P(OfficeDocuments, AreRefusedWithTheFilesName) {
    start(GetParam());
    files.files["/broken.docx"] = "PK nothing";
    for (const std::string file : {"/broken.docx", "/none.docx"}) {
        try {
            application->Documents()->Open(file);
            ADD_FAILURE() << file;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_THAT(error.description(), testing::HasSubstr(file));
        }
    }
    EXPECT_EQ(application->Documents()->Count(), 0);
    EXPECT_EQ(errorOf([&] { application->Documents()->Item(1); }), kMemberNotFound);
}

TEST_P(OfficeDocuments, ThatAreProtectedTakeNoEdit) {
    for (const std::string edit : {"readOnly", "comments", "trackedChanges", "forms"}) {
        const std::string protection = "<w:documentProtection w:edit='" + edit + "' w:enforcement='1'/>";
        openFile(fileWithSettings(
            para("text") + tableXml({cellXml(para("1")) + cellXml(para("2"))}) + para(""), protection));
        const std::string before = body();
        const std::vector<std::function<void()>> edits{
            [&] { selection->TypeText("new"); },
            [&] { selection->TypeParagraph(); },
            [&] { selection->SetText("new"); },
            [&] { document->Bookmarks()->Add("New", *selection->Range()); },
            [&] { document->Tables()->Add(*selection->Range(), 2, 2); },
            [&] { document->Tables()->Item(1)->Rows()->Add(); },
            [&] { document->Tables()->Item(1)->Delete(); },
            [&] { selection->Font()->SetSize(20); },
        };
        for (const auto& makeEdit : edits)
            EXPECT_EQ(errorOf(makeEdit), kNotAvailable) << edit;
        EXPECT_EQ(body(), before) << edit;
    }
}

}  // namespace
}  // namespace mergeloom
