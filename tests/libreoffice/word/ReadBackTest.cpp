#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/readback/ReadBack.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/util/XModifiable.hpp>

namespace mergeloom::libreoffice {

namespace {

using ::testing::HasSubstr;

constexpr auto kFormat = word::WdSaveFormat::wdFormatXMLDocument;

void markFourthLetter(const DocumentReference& document) {
    const Reference<css::text::XTextDocument> texts(document, UNO_QUERY_THROW);
    const Reference<css::lang::XMultiServiceFactory> factory(document, UNO_QUERY_THROW);
    const Reference<css::text::XTextContent> mark(factory->createInstance("com.sun.star.text.Bookmark"),
                                                  UNO_QUERY_THROW);
    Reference<css::container::XNamed>(mark, UNO_QUERY_THROW)->setName("Place");
    const Reference<css::text::XTextCursor> cursor = texts->getText()->createTextCursor();
    cursor->gotoStart(false);
    cursor->goRight(4, false);
    cursor->goRight(1, true);
    texts->getText()->insertTextContent(Reference<css::text::XTextRange>(cursor, UNO_QUERY_THROW), mark,
                                        true);
}

/// LibreOffice 7.4 writes the text of such a control a second time for the bookmark.
TEST(ReadBack, keepsTheFileWhenAContentControlWouldBeRepeated) {
    MemoryFileStore files;
    const auto session = sharedOffice(files);
    const std::string before = wordFile(
        "<w:p><w:sdt><w:sdtPr><w:text/></w:sdtPr><w:sdtContent><w:r><w:t>Customer</w:t></w:r>"
        "</w:sdtContent></w:sdt><w:r><w:t xml:space='preserve'> and more</w:t></w:r></w:p>");
    files.files["/given.docx"] = before;
    const OpenDocument document(session->files(), session->files().open("/given.docx", DocumentKind::Word));
    session->connection().call([&] { markFourthLetter(document.get()); });
    try {
        session->files().save(document.get(), "/given.docx", kFormat, [&](std::string bytes) {
            checkWritten(*session, document.get(), "/given.docx", kFormat, bytes);
            return bytes;
        });
        EXPECT_EQ(digestOfWordPackage(files.read("/given.docx"), "given").text, "Customerandmore");
    } catch (const model::DifferingCopy& copy) {
        EXPECT_THAT(copy.description(), HasSubstr("'/given.docx' was not written"));
        EXPECT_EQ(files.read("/given.docx"), before);
        EXPECT_NE(digestOfWordPackage(copy.bytes(), "copy").text, "Customerandmore");
    }
}

void type(const DocumentReference& document, const std::string& text) {
    const Reference<css::text::XTextDocument> texts(document, UNO_QUERY_THROW);
    texts->getText()->getEnd()->setString(toUno(text));
}

/// Text that is typed during a save is saved, or the document remains modified.
TEST(ReadBack, savesWhatIsTypedDuringTheSave) {
    MemoryFileStore files;
    const auto session = sharedOffice(files);
    const OpenDocument document(session->files(), session->files().create(DocumentKind::Word));
    const Reference<css::util::XModifiable> changes(document.get(), UNO_QUERY_THROW);
    std::vector<std::string> keysBeforeTheComparison{"b", "a"};
    std::string keyAfterIt;
    const auto save = [&] {
        session->files().save(document.get(), "/saved.docx", kFormat, [&](std::string bytes) {
            if (!keysBeforeTheComparison.empty()) {
                type(document.get(), keysBeforeTheComparison.back());
                keysBeforeTheComparison.pop_back();
            }
            checkWritten(*session, document.get(), "/saved.docx", kFormat, bytes);
            if (!keyAfterIt.empty()) type(document.get(), keyAfterIt);
            return bytes;
        });
        return digestOfWordPackage(files.read("/saved.docx"), "saved").text;
    };
    EXPECT_EQ(save(), "ab");
    EXPECT_FALSE(changes->isModified());
    keyAfterIt = "c";
    EXPECT_EQ(save(), "ab");
    EXPECT_TRUE(changes->isModified());
}

TEST(ReadBack, saysWhatDiffers) {
    const std::string longName = "ÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄÄ";  // 40 letters
    const ContentDigest expected{.text = "DearJohn",
                                 .places = {{"Name", "John"}, {"_hidden", "x"}, {longName, "x"}}};
    struct Case {
        ContentDigest written;
        std::string difference;
    };
    const Case cases[] = {
        {{.text = "DearJohn", .places = {{"Name", "John"}, {"More", ""}, {longName, "x"}}}, ""},
        {{.text = "DearJohn", .places = {{"Name", "John"}}}, "the place '" + longName + "' is missing in it"},
        {{.text = "DearJohn", .places = {}}, "the place 'Name' is missing in it"},
        {{.text = "DearJohn", .places = {{"Name", ""}}}, "the place 'Name' holds \"\" instead of \"John\""},
        {{.text = "DearJohnJohn", .places = {{"Name", "John"}, {longName, "x"}}},
         "its text has \"John\" instead of \"\""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(difference(expected, c.written), c.difference);
}

TEST(ReadBack, readsTheTextsThatAreTheDocumentsOwn) {
    const std::string bytes = wordFile(
        "<w:p><w:bookmarkStart w:id='1' w:name='All'/><w:r><w:t>one "
        "</w:t></w:r><w:del><w:r><w:t>x</w:t></w:r></w:del>"
        "<w:r><w:fldChar w:fldCharType='begin'/></w:r><w:r><w:instrText> PAGE </w:instrText></w:r>"
        "<w:r><w:fldChar w:fldCharType='separate'/></w:r><w:r><w:t>7</w:t></w:r>"
        "<w:r><w:fldChar w:fldCharType='end'/></w:r><w:r><w:fldChar w:fldCharType='begin'/></w:r>"
        "<w:r><w:instrText> FORMTEXT </w:instrText></w:r><w:r><w:fldChar w:fldCharType='separate'/></w:r>"
        "<w:r><w:t>two</w:t></w:r><w:r><w:fldChar w:fldCharType='end'/></w:r><w:bookmarkEnd w:id='1'/></w:p>"
        "<w:p><w:r><w:t>three</w:t></w:r></w:p>");
    const ContentDigest digest = digestOfWordPackage(bytes, "given");
    EXPECT_EQ(digest.text, "onetwothree");
    EXPECT_EQ(digest.places.at("All"), "onetwo");
}

}  // namespace

}  // namespace mergeloom::libreoffice
