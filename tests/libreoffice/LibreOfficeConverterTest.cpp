#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "doubles/FaultyFileStore.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/libreoffice/session/LibreOfficeConverter.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/UnoText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using word::WdSaveFormat;

const std::string kText = "Grüße aus Köln €";
const std::string kWordXml = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
const std::string kExcelXml = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
const std::string kCompoundFile = "\xD0\xCF\x11\xE0";

std::string utf16(const std::string& ascii) {
    std::string units;
    for (const char letter : ascii)
        units += {letter, '\0'};
    return units;
}

/// Returns a text that depends on the kind of a file: the types in Open Packaging, the type at the start of
/// other archives, otherwise the file.
std::string kindOf(const std::string& bytes) {
    if (!bytes.starts_with("PK") || bytes.find("mimetypeapplication") != std::string::npos) return bytes;
    std::string kinds;
    const opc::Package package = opc::Package::read(bytes, "result");
    for (const char* const part : {"/word/document.xml", "/xl/workbook.xml"})
        if (package.hasPart(part)) kinds += package.contentTypes().of(part);
    return kinds;
}

struct Expected {
    int format;
    std::string hint;
};

/// All tests of conversions share one office.
class LibreOfficeConverterTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { office = std::make_unique<LibreOfficeConverter>(files); }
    static void TearDownTestSuite() { office.reset(); }

    void SetUp() override {
        files.files = {{"/in.docx", wordFile("<w:p><w:r><w:t>" + kText + "</w:t></w:r></w:p>")},
                       {"/in.csv", "Name,Preis\n" + kText + ",1.5\n"}};
    }
    template <typename Format>
    static std::string errorOf(const std::string& from, const std::string& to, Format format) {
        try {
            office->convert(from, to, format);
        } catch (const AutomationError& error) {
            return std::to_string(error.number()) + " " + error.description();
        }
        return "no error";
    }
    static std::string errorOfReading(const std::string& path) {
        return errorOf(path, "/out.odt", WdSaveFormat{23});
    }

    static inline MemoryFileStore files;
    static inline std::unique_ptr<LibreOfficeConverter> office;
};

TEST_F(LibreOfficeConverterTest, writesTheDocumentsThatItSaysItWrites) {
    const std::vector<Expected> expected{
        {0, kCompoundFile},
        {1, kCompoundFile},
        {2, kText + "\n"},
        {3, kText + "\n"},
        {4,
         "Gr\x81\xE1"
         "e aus K\x94ln"},
        {5,
         "Gr\x81\xE1"
         "e aus K\x94ln"},
        {6, "{\\rtf1"},
        {7, utf16(" aus K")},
        {8, "<html>"},
        {10, "<html>"},
        {11, "progid=\"Word.Document\""},
        {12, kWordXml + "document.main+xml"},
        {13, "application/vnd.ms-word.document.macroEnabled.main+xml"},
        {14, kWordXml + "template.main+xml"},
        {17, "%PDF-"},
        {23, "mimetypeapplication/vnd.oasis.opendocument.text"},
    };
    auto next = expected.begin();
    for (int format = 0; format < 100; ++format) {
        if (!office->canWrite(WdSaveFormat{format})) continue;
        ASSERT_NE(next, expected.end());
        ASSERT_EQ(format, next->format);
        const std::string target = "/out." + wordExtension(format);
        office->convert("/in.docx", target, WdSaveFormat{format});
        EXPECT_THAT(kindOf(files.read(target)), HasSubstr(next++->hint)) << format;
    }
    EXPECT_EQ(next, expected.end());
}

TEST_F(LibreOfficeConverterTest, writesTheWorkbooksThatItSaysItWrites) {
    const std::vector<Expected> expected{
        {-4158, "Name\tPreis\n" + kText + "\t1.5"},
        {-4143, kCompoundFile},
        {2, "ID;P"},
        {6, "Name,Preis\n" + kText + ",1.5"},
        {9, "TABLE"},
        {17, kCompoundFile},
        {19,
         "Gr\x9F\xA7"
         "e aus K\x9Aln \xDB\t"},
        {20,
         "Gr\xFC\xDF"
         "e aus K\xF6ln \x80\t"},
        {21,
         "Gr\x81\xE1"
         "e aus K\x94ln"},
        {22,
         "Gr\x9F\xA7"
         "e aus K\x9Aln \xDB,"},
        {23,
         "Gr\xFC\xDF"
         "e aus K\xF6ln \x80,"},
        {24,
         "Gr\x81\xE1"
         "e aus K\x94ln"},
        {36, "Name"},
        {42, utf16("Name\tPreis")},
        {43, kCompoundFile},
        {44, "<html>"},
        {51, kExcelXml + "sheet.main+xml"},
        {52, "application/vnd.ms-excel.sheet.macroEnabled.main+xml"},
        {54, kExcelXml + "template.main+xml"},
        {56, kCompoundFile},
        {60, "mimetypeapplication/vnd.oasis.opendocument.spreadsheet"},
    };
    auto next = expected.begin();
    for (int format = -5000; format < 100; ++format) {
        const excel::XlFileFormat number{format};
        if (!office->canWrite(number)) continue;
        ASSERT_NE(next, expected.end());
        ASSERT_EQ(format, next->format);
        const std::string target = "/out." + formatExtension(DocumentFamily::Excel, format);
        office->convert("/in.csv", target, number);
        EXPECT_THAT(kindOf(files.read(target)), HasSubstr(next++->hint)) << format;
    }
    EXPECT_EQ(next, expected.end());
}

TEST_F(LibreOfficeConverterTest, keepsTheTextThereAndBack) {
    office->convert("/in.docx", "/there.odt", WdSaveFormat{23});
    office->convert("/there.odt", "/back.docx", WdSaveFormat::wdFormatXMLDocument);
    EXPECT_THAT(shownBody(files.read("/back.docx")), HasSubstr(kText));
    office->convert("/in.csv", "/there.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    office->convert("/there.xlsx", "/back.csv", excel::XlFileFormat{6});
    EXPECT_EQ(files.read("/back.csv"), "Name,Preis\n" + kText + ",1.5\n");
}

TEST_F(LibreOfficeConverterTest, refusesWhatItCannotReadAndNamesIt) {
    const std::string whole = files.read("/in.docx");
    files.files["/cut.docx"] = whole.substr(0, whole.size() / 2);
    files.files["/text.docx"] = "These are just letters.";
    files.files["/empty.docx"] = "";
    files.files["/zeros.xls"] = std::string(4000, '\0');
    for (const std::string path : {"/cut.docx", "/text.docx", "/zeros.xls"})
        EXPECT_EQ(errorOfReading(path), std::to_string(kFileCouldNotBeRead) + " The file '" + path +
                                            "' could not be read: it is damaged, or of a format that "
                                            "LibreOffice does not know.");
    EXPECT_THAT(errorOfReading("/missing.docx"), HasSubstr("'/missing.docx' could not be read: it does not"));
    office->convert("/in.csv", "/cells.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    EXPECT_THAT(errorOfReading("/cells.xlsx"),
                HasSubstr("'/cells.xlsx' could not be read: it holds no document"));
    EXPECT_THAT(errorOf("/in.docx", "/out.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook),
                HasSubstr("'/in.docx' could not be read: it holds no workbook"));
    EXPECT_FALSE(files.fileExists("/out.odt"));
}

TEST_F(LibreOfficeConverterTest, refusesFormatsThatItDoesNotWrite) {
    EXPECT_THAT(
        errorOf("/in.docx", "/out.xps", WdSaveFormat{18}),
        AllOf(StartsWith(std::to_string(kNotAvailable)), HasSubstr("'/out.xps'"), HasSubstr("number 18")));
    EXPECT_FALSE(files.fileExists("/out.xps"));
}

TEST_F(LibreOfficeConverterTest, keepsAnExistingTargetWhenItFails) {
    files.files["/out.odt"] = "old";
    files.files["/bad.docx"] = "bad";
    EXPECT_THAT(errorOfReading("/bad.docx"), HasSubstr("'/bad.docx' could not be read"));
    EXPECT_EQ(files.read("/out.odt"), "old");
}

std::string asWritten(std::string bytes) {
    return bytes;
}

TEST(LibreOfficeFiles, leavesSafetyOnTheDiskToTheStore) {
    MemoryFileStore files;
    files.files["/out.odt"] = "old";
    FaultyFileStore faulty(files, 2);  // within the save
    LibreOfficeSession session(faulty);
    const DocumentReference document = session.files().create(DocumentKind::Word);
    try {
        session.files().save(document, "/out.odt", WdSaveFormat{23}, asWritten);
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.description(), "The file '/out.odt' could not be saved: the disk is full.");
    }
    EXPECT_EQ(files.read("/out.odt"), "old");
    session.files().save(document, "/out.odt", WdSaveFormat{23}, asWritten);
    EXPECT_THAT(files.read("/out.odt"), StartsWith("PK"));
}

/// The code that restores the document after a failed save must not raise errors when the office has ended.
TEST(LibreOfficeFiles, failsInWordsWhenTheOfficeEndsDuringASave) {
    MemoryFileStore files;
    files.files["/out.odt"] = "old";
    LibreOfficeSession session(files);
    const DocumentReference document = session.files().create(DocumentKind::Word);
    session.connection().call(
        [&] { Reference<css::util::XModifiable>(document, UNO_QUERY_THROW)->setModified(true); });
    const auto endOffice = [&](const std::string& /*bytes*/) -> std::string {
        session.process().kill();
        throw AutomationError(kNotAvailable, "ended");
    };
    EXPECT_THROW(session.files().save(document, "/out.odt", WdSaveFormat{23}, endOffice), AutomationError);
    EXPECT_EQ(files.read("/out.odt"), "old");
}

TEST(LibreOfficeConverter, keepsRelativeLinksOnTheDiskAndLeavesNothingBesideThem) {
    const TemporaryFolder folder;
    folder.put("in.htm", "<html><body><a href=\"other.docx\">link</a></body></html>");
    folder.put("bad.docx", "bad");
    DiskFileStore files;
    LibreOfficeConverter office(files);
    office.convert(folder / "in.htm", folder / "out.htm", WdSaveFormat{8});
    EXPECT_THAT(folder.bytesOf("out.htm"), HasSubstr("href=\"other.docx\""));
    EXPECT_THROW(office.convert(folder / "bad.docx", folder / "out.odt", WdSaveFormat{23}), AutomationError);
    EXPECT_THROW(office.convert(folder / "in.htm", folder / "none/out.odt", WdSaveFormat{23}),
                 AutomationError);
    EXPECT_EQ(folder.entryCount(), 3);
}

TEST(LibreOfficeConverter, startsAnewAfterItsOfficeDied) {
    const OwnTemporaryFolder temporary;
    MemoryFileStore files;
    files.files["/in.csv"] = "a,b\n";
    LibreOfficeConverter office(files);
    EXPECT_THAT(temporary.entries(), IsEmpty()) << "nothing is started before it is needed";
    office.convert("/in.csv", "/out.ods", excel::XlFileFormat{60});
    temporary.killWorkers();
    EXPECT_TRUE(becomesTrue([&] { return temporary.processes().size() <= 1; }));
    office.convert("/in.csv", "/again.ods", excel::XlFileFormat{60});
    EXPECT_EQ(kindOf(files.read("/again.ods")).substr(0, 2), "PK");
}

/// The program that has started the office continues to run.
TEST(LibreOfficeConverter, startsAnewWhileItsDeadOfficeSeemsToRun) {
    const OwnTemporaryFolder temporary;
    MemoryFileStore files;
    files.files["/in.csv"] = "a,b\n";
    LibreOfficeConverter office(files);
    office.convert("/in.csv", "/out.ods", excel::XlFileFormat{60});
    temporary.signal("oosplash", SIGSTOP);
    temporary.killWorkers();
    office.convert("/in.csv", "/again.ods", excel::XlFileFormat{60});
    EXPECT_EQ(kindOf(files.read("/again.ods")).substr(0, 2), "PK");
}

TEST(LibreOfficeConverter, writesNothingWithoutAnOffice) {
    const Variable variable("MERGELOOM_SOFFICE", "/nowhere/soffice");
    MemoryFileStore files;
    LibreOfficeConverter office(files);
    EXPECT_FALSE(office.canWrite(WdSaveFormat{23}));
    EXPECT_THROW(office.convert("/in.docx", "/out.odt", WdSaveFormat{23}), AutomationError);
}

TEST(LibreOfficeFiles, locksNothingThatItOpens) {
    const TemporaryFolder folder;
    folder.put("in.docx", wordFile("<w:p/>"));
    DiskFileStore files;
    LibreOfficeSession session(files);
    const DocumentReference document = session.files().open(folder / "in.docx", DocumentKind::Word);
    EXPECT_TRUE(document.is());
    EXPECT_EQ(folder.entryCount(), 1);
}

/// Returns the text inside a bookmark.
std::string markedText(const DocumentReference& document, const char* name) {
    const Reference<css::text::XBookmarksSupplier> supplier(document, UNO_QUERY_THROW);
    const Reference<css::text::XTextContent> mark(supplier->getBookmarks()->getByName(toUno(name)),
                                                  UNO_QUERY_THROW);
    return fromUno(mark->getAnchor()->getString());
}

TEST(LibreOfficeFiles, opensAMarkedTableForEditingWhereItLies) {
    const TemporaryFolder folder;
    folder.put("in.docx",
               wordFile("<w:p/><w:tbl><w:tblPr/><w:tblGrid><w:gridCol w:w=\"2256\"/></w:tblGrid><w:tr><w:tc>"
                        "<w:p><w:bookmarkStart w:id=\"1\" w:name=\"T\"/><w:r><w:t>cell</w:t></w:r></w:p>"
                        "</w:tc></w:tr></w:tbl><w:bookmarkEnd w:id=\"1\"/><w:p/>"));
    DiskFileStore files;
    LibreOfficeSession session(files);
    const DocumentReference document = session.files().open(folder / "in.docx", DocumentKind::Word);
    session.connection().call([&] {
        EXPECT_EQ(markedText(document, "T"), "cell");
        const Reference<css::frame::XStorable> storable(document, UNO_QUERY_THROW);
        EXPECT_EQ(fromUno(storable->getLocation()), fileUrl(folder / "in.docx"));
        EXPECT_FALSE(storable->isReadonly());
    });
    EXPECT_EQ(folder.entryCount(), 1);
}

/// Returns a document with a password. Only an office can make one, and each of the two kinds of archives
/// requires the password in another form.
std::string secretDocument(LibreOfficeSession& session, const std::string& name, const std::string& filter) {
    const std::string path = session.process().workFolder() + "/" + name;
    css::uno::Sequence<css::beans::NamedValue> secret(2);
    secret.getArray()[0] = {"OOXPassword", css::uno::Any(toUno("pass"))};
    secret.getArray()[1] = {"CryptoType", css::uno::Any(toUno("Standard"))};
    css::uno::Sequence<css::beans::PropertyValue> properties(2);
    properties.getArray()[0].Name = "FilterName";
    properties.getArray()[0].Value <<= toUno(filter);
    const bool isPackage = name.ends_with(".docx");
    properties.getArray()[1].Name = isPackage ? toUno("EncryptionData") : toUno("Password");
    properties.getArray()[1].Value = isPackage ? css::uno::Any(secret) : css::uno::Any(toUno("pass"));
    const DocumentReference document = session.files().create(DocumentKind::Word);
    session.connection().call([&] {
        Reference<css::frame::XStorable>(document, UNO_QUERY_THROW)
            ->storeToURL(toUno(fileUrl(path)), properties);
    });
    return DiskFileStore().read(path);
}

TEST(LibreOfficeFiles, refusesADocumentWithAPasswordAndNamesIt) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    files.files["secret.docx"] = secretDocument(session, "secret.docx", "MS Word 2007 XML");
    files.files["secret.odt"] = secretDocument(session, "secret.odt", "writer8");
    files.files["secret.doc"] = secretDocument(session, "secret.doc", "MS Word 97");
    for (const auto& [name, bytes] : files.files) {
        try {
            session.files().open(name, DocumentKind::Word);
            ADD_FAILURE() << name << " was opened";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_EQ(error.description(),
                      "The file '" + name + "' could not be read: it is protected by a password.");
        }
    }
}

}  // namespace

}  // namespace mergeloom::libreoffice
