#include "base/Paths.h"
#include "doubles/MemoryFileStore.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"
#include "office/model/PasswordRequired.h"
#include "office/opc/Package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace mergeloom::libreoffice {

namespace {

using excel::XlFileFormat;
using testing::HasSubstr;
using testing::StartsWith;
using word::WdSaveFormat;

const std::string kSecret = "topsecretsentence";
const std::string kPassword = "Geheim ä€1";

/// Returns the text of a document, or of the first cell of a workbook.
Reference<css::text::XTextRange> textOf(const DocumentReference& document) {
    const Reference<css::text::XTextDocument> text(document, UNO_QUERY);
    if (text.is()) return {text->getText(), UNO_QUERY_THROW};
    const Reference<css::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> sheets(workbook->getSheets(), UNO_QUERY_THROW);
    const Reference<css::table::XCellRange> sheet(sheets->getByIndex(0), UNO_QUERY_THROW);
    return {sheet->getCellByPosition(0, 0), UNO_QUERY_THROW};
}

SaveFormat formatOf(const std::string& path) {
    const std::string ending = extension(path);
    if (isWordExtension(ending)) return WdSaveFormat{wordFormatByExtension(ending)};
    return XlFileFormat{excelFormatByExtension(ending)};
}

/// An office that all cases share. Its files are in memory.
class FilePasswords : public testing::Test {
  protected:
    DocumentReference open(const std::string& path, DocumentKind kind, const std::string& password) {
        session.files().setPassword(password);
        return session.files().open(path, kind);
    }
    std::string textIn(const DocumentReference& document) {
        return session.connection().call([&] { return fromUno(textOf(document)->getString()); });
    }
    /// Returns a document with the text that was opened from a file with the password.
    DocumentReference protectedDocument(DocumentKind kind) {
        const bool isText = kind == DocumentKind::Word;
        const std::string path = isText ? "first.odt" : "first.ods";
        const OpenDocument made(session.files(), session.files().create(kind));
        session.connection().call([&] { textOf(made.get())->setString(toUno(kSecret)); });
        session.files().save(made.get(), path, formatOf(path), [](std::string bytes) { return bytes; });
        // A password for a file without one encrypts all files that are written of the document.
        return open(path, kind, kPassword);
    }

    MemoryFileStore files;
    LibreOfficeSession session{files};
};

TEST_F(FilePasswords, everyFormatThatCanBeProtectedKeepsItsPassword) {
    for (const std::string path :
         {"a.docx", "a.dotx", "a.odt", "a.doc", "a.xlsx", "a.xlsm", "a.ods", "a.xls"}) {
        const SaveFormat format = formatOf(path);
        SCOPED_TRACE(path);
        {
            const OpenDocument made(session.files(), protectedDocument(format.kind));
            EXPECT_FALSE(session.files().losesPassword(made.get(), format));
            session.files().save(made.get(), path, format, [](std::string bytes) { return bytes; });
        }
        const std::string first = files.files[path];
        for (const char* const wrong : {"", "geheim ä€1"})
            EXPECT_THROW(open(path, format.kind, wrong), model::PasswordRequired) << wrong;

        // Saves and copies of a document have the password with which its file was opened.
        const OpenDocument again(session.files(), open(path, format.kind, kPassword));
        EXPECT_EQ(textIn(again.get()), kSecret);
        session.connection().call([&] { textOf(again.get())->setString(toUno(kSecret + "2")); });
        session.files().save(again.get(), path, format, [](std::string bytes) { return bytes; });
        EXPECT_NE(files.files[path], first);
        EXPECT_THROW(open(path, format.kind, ""), model::PasswordRequired);
        session.files().exportCopy(again.get(), "copy-" + path, format);
        EXPECT_THROW(open("copy-" + path, format.kind, "wrong"), model::PasswordRequired);
        session.files().keepCopy(again.get(), "kept.odf");
        EXPECT_THROW(open("kept.odf", format.kind, ""), model::PasswordRequired);
        const OpenDocument kept(session.files(), open("kept.odf", format.kind, kPassword));
        EXPECT_EQ(textIn(kept.get()), kSecret + "2");
    }
}

TEST_F(FilePasswords, theRevisionSeesTheContentAndItsErrorsDoNotShowIt) {
    const OpenDocument document(session.files(), protectedDocument(DocumentKind::Word));
    const SaveFormat format = WdSaveFormat::wdFormatXMLDocument;
    session.files().save(document.get(), "a.docx", format, [](std::string bytes) {
        EXPECT_TRUE(opc::Package::read(bytes, "a.docx").hasPart("/word/document.xml"));
        return bytes;
    });
    const std::string before = files.files["a.docx"];
    EXPECT_THAT(before, StartsWith("\xD0\xCF\x11\xE0"));
    std::string offered;
    try {
        session.files().save(document.get(), "a.docx", format, [](const std::string& bytes) -> std::string {
            throw model::LossySave("The changes cannot be repeated.", bytes);
        });
    } catch (const model::LossySave& loss) {
        EXPECT_EQ(loss.description(), "The changes cannot be repeated.");
        offered = loss.bytes();
    }
    EXPECT_EQ(files.files["a.docx"], before);
    files.files["offered.docx"] = offered;
    EXPECT_THROW(open("offered.docx", DocumentKind::Word, ""), model::PasswordRequired);
    const OpenDocument again(session.files(), open("offered.docx", DocumentKind::Word, kPassword));
    EXPECT_EQ(textIn(again.get()), kSecret);
}

TEST_F(FilePasswords, otherFormatsLoseThePasswordWithTheSave) {
    const OpenDocument document(session.files(), protectedDocument(DocumentKind::Word));
    const SaveFormat rtf = formatOf("a.rtf");
    EXPECT_TRUE(session.files().losesPassword(document.get(), rtf));
    session.files().exportCopy(document.get(), "copy.rtf", rtf);
    EXPECT_TRUE(session.files().losesPassword(document.get(), rtf)) << "only a copy was written";
    session.files().save(document.get(), "a.rtf", rtf, [](std::string bytes) { return bytes; });
    EXPECT_THAT(files.files["a.rtf"], HasSubstr(kSecret));
    EXPECT_FALSE(session.files().losesPassword(document.get(), rtf));
    EXPECT_EQ(session.files().passwordOf(document.get()), "");
}

TEST_F(FilePasswords, noFileInBetweenStays) {
    {
        const OpenDocument document(session.files(), protectedDocument(DocumentKind::Word));
        const SaveFormat format = WdSaveFormat::wdFormatXMLDocument;
        session.files().save(document.get(), "a.docx", format, [](std::string bytes) { return bytes; });
        EXPECT_FALSE(session.files().exportedBytes(document.get(), "b.docx", format).empty());
        EXPECT_FALSE(session.files()
                         .exportOf("a.docx", session.files().plainBytes(document.get(), "a.docx"), "c.docx",
                                   format, kPassword)
                         .empty());
    }
    const OpenDocument again(session.files(), open("a.docx", DocumentKind::Word, kPassword));
    std::vector<std::string> left;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(session.process().workFolder())) {
        if (!entry.is_regular_file()) continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        // Only the encrypted copy of the open file remains, in a folder that only the user can read.
        if (bytes.str().starts_with("PK")) left.push_back(entry.path().string());
    }
    EXPECT_THAT(left, testing::IsEmpty());
    const auto others = std::filesystem::perms::group_all | std::filesystem::perms::others_all;
    const auto outer = std::filesystem::path(session.process().workFolder()).parent_path();
    EXPECT_EQ(std::filesystem::status(outer).permissions() & others, std::filesystem::perms::none);
}

}  // namespace

}  // namespace mergeloom::libreoffice
