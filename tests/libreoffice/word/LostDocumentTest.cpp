#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <gtest/gtest.h>

#include <com/sun/star/util/XCloseable.hpp>
#include <functional>

namespace mergeloom::libreoffice {

namespace {

/// The user may close a document while a program edits it.
TEST(LostDocument, EveryCallSaysThatItIsGoneAndTheOfficeLivesOn) {
    MemoryFileStore files;
    const auto session = sharedOffice(files);
    const word::ApplicationPtr word = makeWordApplication(session, files);
    const word::DocumentPtr lost = word->Documents()->Add("");
    const word::SelectionPtr selection = word->Selection();
    selection->TypeText("some text");
    const word::BookmarkPtr bookmark = lost->Bookmarks()->Add("Place", *selection->Range());
    const word::RangePtr range = bookmark->Range();
    word->UndoRecord()->StartCustomRecord("Drop");
    session->connection().call(
        [&] { Reference<css::util::XCloseable>(componentOf(*lost), UNO_QUERY_THROW)->close(true); });
    struct Case {
        const char* what;
        std::function<void()> call;
    };
    const Case cases[] = {
        {"text typed", [&] { selection->TypeText("x"); }},
        {"a range's text", [&] { (void)range->Text(); }},
        {"a range's new text", [&] { range->SetText("x"); }},
        {"a table", [&] { (void)lost->Tables()->Add(*range, 2, 2); }},
        {"a bookmark", [&] { (void)bookmark->Range(); }},
        {"a bookmark added", [&] { (void)lost->Bookmarks()->Add("Other", *range); }},
        {"all bookmarks", [&] { (void)lost->Bookmarks()->Count(); }},
        {"the end of the step", [&] { word->UndoRecord()->EndCustomRecord(); }},
        {"undo", [&] { (void)lost->Undo(1); }},
        {"a file", [&] { lost->SaveAs("/lost.docx", word::WdSaveFormat::wdFormatXMLDocument); }},
    };
    for (const Case& c : cases) {
        try {
            c.call();
            ADD_FAILURE() << c.what;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kObjectDeleted) << c.what << ": " << error.description();
        }
    }
    EXPECT_TRUE(files.files.empty());
    lost->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    const word::DocumentPtr next = word->Documents()->Add("");
    word->Selection()->TypeText("goes on");
    next->SaveAs("/next.docx", word::WdSaveFormat::wdFormatXMLDocument);
    EXPECT_TRUE(files.fileExists("/next.docx"));
    next->Close(word::WdSaveOptions::wdDoNotSaveChanges);
}

}  // namespace

}  // namespace mergeloom::libreoffice
