#include "base/AutomationError.h"
#include "doubles/WordFiles.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

using std::string;

string paragraph(const string& inside) {
    return "<w:p>" + inside + "</w:p>";
}

string run(const string& text) {
    return "<w:r><w:t>" + text + "</w:t></w:r>";
}

string control(const string& properties, const string& content) {
    return "<w:sdt><w:sdtPr>" + properties + "</w:sdtPr><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
}

string lock(const string& kind) {
    return "<w:alias w:val=\"Box\"/><w:lock w:val=\"" + kind + "\"/>";
}

string withMarks(string body) {
    const auto replace = [&](const string& sign, const string& mark) {
        const std::size_t found = body.find(sign);
        if (found != string::npos) body.replace(found, sign.size(), mark);
    };
    replace("{", "<w:bookmarkStart w:id=\"9\" w:name=\"Here\"/>");
    replace("}", "<w:bookmarkEnd w:id=\"9\"/>");
    return body;
}

/// Edits of a protected document: texts, tables and bookmarks.
class Protection : public testing::Test {
  protected:
    /// Braces mark the content of the range "here".
    void open(const string& body, const string& settings = "") {
        files.files["/given.docx"] = fileWithSettings(withMarks(body), settings);
        application = embedded::makeWordApplication(files);
        document = application->Documents()->Open("/given.docx");
        here = document->Bookmarks()->Item("Here")->Range();
    }

    /// Returns the sentence that refuses an edit; empty if it is made.
    static string refusal(const std::function<void()>& edit) {
        try {
            edit();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kNotAvailable);
            return error.description();
        }
        return "";
    }

    MemoryFileStore files;
    word::ApplicationPtr application;
    word::DocumentPtr document;
    word::RangePtr here;
};

TEST_F(Protection, KeepsWhatLocksOfContentControlsForbid) {
    struct Case {
        string body;
        bool refused;
    };
    const string locked = lock("contentLocked");
    const string text = run("a") + "{" + run("b") + "}" + run("c");
    const string caret = run("a") + "{}" + run("bc");
    const string cell = "<w:tc>" + paragraph(run("ab")) + "</w:tc>";
    const string marked = "<w:tc>" + paragraph(caret) + "</w:tc>";
    const std::vector<Case> cases{
        {paragraph(control(locked, caret)), true},
        {paragraph(control(lock("sdtContentLocked"), text)), true},
        {paragraph(control(lock("sdtLocked"), text)), false},
        {paragraph(control(lock("unlocked"), caret)), false},
        {paragraph("{}" + control(locked, run("abc"))), false},
        {paragraph("{" + run("x") + control(locked, run("ab") + "}" + run("c"))), true},
        {control(locked, paragraph(caret)), true},
        {control(locked, paragraph("{}")), true},
        {control(locked, paragraph(control("", caret))), true},
        {"<w:tbl>" + control(locked, "<w:tr>" + marked + "</w:tr>") + "</w:tbl><w:p/>", true},
        {"<w:tbl><w:tr>" + control(locked, marked) + cell + "</w:tr></w:tbl><w:p/>", true},
        {"<w:tbl><w:tr>" + control(locked, cell) + marked + "</w:tr></w:tbl><w:p/>", false},
        {control("<w:alias w:val=\"Box\"/><w:group/>", paragraph(caret)), true},
        {control("<w:group/>", paragraph(control("", caret))), false},
    };
    for (const Case& c : cases) {
        open(c.body);
        const string before = shown(*document, files);
        const string expected = c.refused
                                    ? "The content control 'Box' is locked: its content cannot be changed. "
                                      "Take the lock off in the control's properties first."
                                    : "";
        EXPECT_EQ(refusal([&] { here->SetText("new"); }), expected) << c.body;
        EXPECT_EQ(shown(*document, files) == before, c.refused) << c.body;
    }
}

TEST_F(Protection, ForbidsEveryKindOfEditInALockedControl) {
    const string free =
        "<w:bookmarkStart w:id=\"5\" w:name=\"Free\"/>" + run("x") + "<w:bookmarkEnd w:id=\"5\"/>";
    open(paragraph(free) +
         control(lock("contentLocked"), paragraph(run("a") + "{" + run("b") + "}" + run("c"))));
    const string before = shown(*document, files);
    const std::vector<std::function<void()>> edits{
        [&] { document->Bookmarks()->Add("New", *here); },
        [&] { document->Bookmarks()->Item("Free")->SetEnd(here->End()); },
        [&] { document->Tables()->Add(*here, 2, 2); },
        [&] {
            here->Select();
            application->Selection()->Collapse(word::WdCollapseDirection::wdCollapseStart);
            application->Selection()->TypeParagraph();
        },
    };
    for (const auto& edit : edits) {
        EXPECT_NE(refusal(edit), "");
        EXPECT_EQ(shown(*document, files), before);
    }
}

TEST_F(Protection, KeepsWhatTheDocumentsProtectionForbids) {
    const auto protection = [](const string& edit, const string& enforcement) {
        return "<w:documentProtection w:edit=\"" + edit + "\"" + enforcement + "/>";
    };
    const string on = " w:enforcement=\"1\"";
    struct Case {
        string settings;
        string allowed;
    };
    const std::vector<Case> cases{
        {protection("readOnly", on), "it may only be read"},
        {protection("readOnly", " w:enforcement=\"true\""), "it may only be read"},
        {protection("comments", on), "only comments may be added to it"},
        {protection("trackedChanges", on),
         "only changes that are tracked may be made, which this change would not be"},
        {protection("forms", on), "only its form fields may be filled in"},
        {protection("readOnly", " w:enforcement=\"0\""), ""},
        {protection("readOnly", ""), ""},
        {protection("none", on), ""},
    };
    for (const Case& c : cases) {
        open(paragraph(run("a") + "{}" + run("bc")), c.settings);
        const string expected = c.allowed.empty() ? ""
                                                  : "The document '/given.docx' is protected: " + c.allowed +
                                                        ". Take the document's protection off first.";
        EXPECT_EQ(refusal([&] { here->SetText("new"); }), expected) << c.settings;
        EXPECT_EQ(refusal([&] { document->Bookmarks()->Add("B", *here); }), expected) << c.settings;
    }
}

TEST_F(Protection, LeavesOpenSectionsOfAFormOpen) {
    const string openSection = "<w:pPr><w:sectPr><w:formProt w:val=\"0\"/></w:sectPr></w:pPr>";
    const string forms = "<w:documentProtection w:edit=\"forms\" w:enforcement=\"1\"/>";
    open(paragraph("{}" + run("a")) + paragraph(openSection + run("b")) + paragraph("") + "<w:sectPr/>",
         forms);
    EXPECT_EQ(refusal([&] { here->SetText("new"); }), "");
    open(paragraph(openSection + run("a")) + paragraph("{}" + run("b")) + "<w:sectPr/>", forms);
    EXPECT_NE(refusal([&] { here->SetText("new"); }), "");
}

}  // namespace
}  // namespace mergeloom
