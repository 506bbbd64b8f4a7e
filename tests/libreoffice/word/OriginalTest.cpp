#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "doubles/PackageBytes.h"
#include "doubles/TemporaryFolder.h"
#include "droppers/DropTest.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/graft/PackageGraft.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"
#include "office/opc/ZipReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <map>

namespace mergeloom {

namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kForm =
    "<db><Form Name='F'><Control Name='City' Caption='Town'/><Control Name='Street' Caption='Street'/>"
    "</Form></db>";

constexpr const char* kCity = "2k";
constexpr const char* kStreet = "3k";

/// Content that LibreOffice would remove or change: controls, themes and attributes.
const std::string kBody =
    "<w:p><w:r><w:rPr><w:rFonts w:asciiTheme=\"majorHAnsi\"/><w:color w:val=\"4F81BD\" "
    "w:themeColor=\"accent1\"/></w:rPr><w:t>Dear customer</w:t></w:r></w:p>"
    "<w:sdt><w:sdtPr><w:alias w:val=\"Terms\"/><w:tag w:val=\"terms\"/><w:id w:val=\"4711\"/></w:sdtPr>"
    "<w:sdtContent><w:p><w:r><w:t>Our terms.</w:t></w:r></w:p></w:sdtContent></w:sdt>"
    "<w:p w:rsidR=\"00AB12CD\"><w:r><w:t>The last line.</w:t></w:r></w:p>"
    "<w:sectPr><w:pgSz w:w=\"11906\" w:h=\"16838\"/></w:sectPr>";

std::string originalFile() {
    opc::Package package = opc::Package::read(
        fileWithSettings(kBody, "<w:rsids><w:rsidRoot w:val=\"00AB12CD\"/></w:rsids>"), "o");
    package.addPart("/customXml/item1.xml", "application/xml", "<data xmlns=\"urn:ours\">kept</data>");
    package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("customXml", opc::Conformance::Transitional), "/customXml/item1.xml");
    package.addPart(
        "/word/theme/theme1.xml", "application/vnd.openxmlformats-officedocument.theme+xml",
        "<a:theme xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" name=\"Ours\"/>");
    return packageBytes(package);
}

/// Returns the entries of an archive as they are stored.
std::map<std::string, std::string> entriesOf(const std::string& bytes) {
    const opc::ZipReader archive(bytes, "archive");
    std::map<std::string, std::string> entries;
    for (const opc::ZipEntry& entry : archive.entries())
        entries[entry.name] = std::string(entry.raw);
    return entries;
}

std::vector<std::string> changedEntries(const std::string& before, const std::string& after) {
    const auto former = entriesOf(before);
    const auto now = entriesOf(after);
    std::vector<std::string> changed;
    for (const auto& [name, raw] : former)
        if (!now.contains(name) || now.at(name) != raw) changed.push_back(name);
    for (const auto& [name, raw] : now)
        if (!former.contains(name)) changed.push_back(name);
    return changed;
}

/// A document that LibreOffice edits as in the window: saves keep its original.
class OriginalTest : public StructureTest {
  protected:
    OriginalTest() { load(kForm); }

    void write(const std::string& bytes) {
        disk.save(path, [&](ByteSink& sink) { sink.write(bytes); });
    }
    void open() {
        word = libreoffice::makeWordApplication(sharedOffice(disk), disk, grafting);
        document = word->Documents()->Open(path);
    }
    void TearDown() override {
        if (document) document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    }
    bool drop(const std::string& key) {
        CNodeDropper dropper{errors, messages, [&](const std::string& image) { return pictures[image]; },
                             progress, nullptr};
        return dropper.NodeDrop(node(key), document, xmlNodes, false, DocumentType::ByView, nullptr);
    }
    /// Dispatches a command of the office that the object model has no member for.
    void addHeader() {
        sharedOffice(disk)->connection().call([&] {
            using libreoffice::Reference;
            const Reference<css::style::XStyleFamiliesSupplier> styles(libreoffice::componentOf(*document),
                                                                       css::uno::UNO_QUERY_THROW);
            const Reference<css::container::XNameAccess> pages(
                styles->getStyleFamilies()->getByName("PageStyles"), css::uno::UNO_QUERY_THROW);
            const Reference<css::beans::XPropertySet> page(pages->getByName(pages->getElementNames()[0]),
                                                           css::uno::UNO_QUERY_THROW);
            page->setPropertyValue("HeaderIsOn", css::uno::Any(true));
        });
    }
    /// Inserts a picture by the command of the office's menu, which lets it float.
    void insertFloatingPicture(const std::string& file) {
        libreoffice::OfficeConnection& office = sharedOffice(disk)->connection();
        office.call([&] {
            using libreoffice::Reference;
            const Reference<css::frame::XModel> model(libreoffice::componentOf(*document),
                                                      css::uno::UNO_QUERY_THROW);
            const Reference<css::frame::XDispatchProvider> commands(model->getCurrentController()->getFrame(),
                                                                    css::uno::UNO_QUERY_THROW);
            css::beans::PropertyValue name;
            name.Name = "FileName";
            name.Value <<= libreoffice::toUno(libreoffice::fileUrl(file));
            css::frame::DispatchHelper::create(office.context())
                ->executeDispatch(commands, ".uno:InsertGraphic", {}, 0,
                                  css::uno::Sequence<css::beans::PropertyValue>(&name, 1));
        });
    }
    /// Removes the link for an empty address.
    void linkTheLastWord(const std::string& address) {
        sharedOffice(disk)->connection().call([&] {
            using libreoffice::Reference;
            const Reference<css::text::XTextDocument> text(libreoffice::componentOf(*document),
                                                           css::uno::UNO_QUERY_THROW);
            const Reference<css::text::XTextCursor> cursor = text->getText()->createTextCursor();
            cursor->gotoEnd(false);
            cursor->goLeft(5, true);
            const Reference<css::beans::XPropertySet> last(cursor, css::uno::UNO_QUERY_THROW);
            const Reference<css::beans::XPropertyState> state(cursor, css::uno::UNO_QUERY_THROW);
            if (address.empty()) return state->setPropertyToDefault("HyperLinkURL");
            last->setPropertyValue("HyperLinkURL", css::uno::Any(libreoffice::toUno(address)));
        });
        document->SetSaved(false);
    }
    std::string saved() {
        document->Save();
        return disk.read(path);
    }

    TemporaryFolder folder;
    DiskFileStore disk;
    const std::string path = folder / "letter.docx";
    const std::unique_ptr<model::PackageGraft> graft = graft::makePackageGraft();
    libreoffice::GraftingOfficePtr grafting = std::make_shared<libreoffice::GraftingOffice>(*graft, disk);
    word::ApplicationPtr word;
    word::DocumentPtr document;
};

TEST_F(OriginalTest, IsTheSameAfterASaveWithoutAChange) {
    const std::string original = originalFile();
    write(original);
    open();
    document->SetSaved(false);
    EXPECT_TRUE(saved() == original);
    ASSERT_TRUE(document->keptEntries());
    EXPECT_EQ(document->keptEntries()->unchanged, document->keptEntries()->all);
}

TEST_F(OriginalTest, GetsADroppedFieldAndNothingElse) {
    const std::string original = originalFile();
    write(original);
    open();
    word->Selection()->EndKey(word::WdUnits::wdStory);
    ASSERT_TRUE(drop(kCity));
    const std::string file = saved();
    EXPECT_THAT(changedEntries(original, file), ElementsAre("word/document.xml"));
    const std::string xml = opc::Package::read(file, "saved").readPart(kMainPart);
    for (const char* kept : {"w:asciiTheme=\"majorHAnsi\"", "w:themeColor=\"accent1\"",
                             "<w:tag w:val=\"terms\"/>", "<w:id w:val=\"4711\"/>", "w:rsidR=\"00AB12CD\""})
        EXPECT_THAT(xml, HasSubstr(kept));
}

TEST_F(OriginalTest, IsSavedInTheSameWayAfterAPreparation) {
    const auto savedAfter = [&](int preparations) {
        write(originalFile());
        open();
        for (int number = 0; number < preparations; ++number)
            document->prepareSave();
        word->Selection()->EndKey(word::WdUnits::wdStory);
        EXPECT_TRUE(drop(kCity));
        std::string file = saved();
        document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
        return file;
    };
    const std::string file = savedAfter(0);
    EXPECT_TRUE(savedAfter(1) == file);
    EXPECT_TRUE(savedAfter(2) == file);
    EXPECT_EQ(folder.entryCount(), 1);
}

/// Adds the style of links, which the original does not have.
TEST_F(OriginalTest, GetsALinkWithItsStyle) {
    opc::Package package = opc::Package::read(originalFile(), "o");
    package.addPart(
        "/word/styles.xml", "application/vnd.openxmlformats-officedocument.wordprocessingml.styles+xml",
        "<w:styles xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:style "
        "w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name "
        "w:val=\"Normal\"/></w:style></w:styles>");
    package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("styles", opc::Conformance::Transitional), "/word/styles.xml");
    const std::string original = packageBytes(package);
    write(original);
    open();
    linkTheLastWord("https://example.org/x?a=1&b=2");
    const std::string file = saved();
    EXPECT_THAT(changedEntries(original, file),
                ElementsAre("word/_rels/document.xml.rels", "word/document.xml", "word/styles.xml"));
    const opc::Package now = opc::Package::read(file, "saved");
    // The identifier of the style depends on the version of LibreOffice.
    EXPECT_THAT(now.readPart(kMainPart),
                AnyOf(HasSubstr("<w:rStyle w:val=\"InternetLink\"/></w:rPr><w:t>line.</w:t>"),
                      HasSubstr("<w:rStyle w:val=\"Hyperlink\"/></w:rPr><w:t>line.</w:t>")));
    EXPECT_THAT(now.readPart("/word/_rels/document.xml.rels"),
                HasSubstr("Target=\"https://example.org/x?a=1&amp;b=2\" TargetMode=\"External\""));
    EXPECT_THAT(now.readPart("/word/styles.xml"), HasSubstr("<w:name w:val=\"Hyperlink\"/>"));
    // Removing the link also removes its relationship and its style.
    linkTheLastWord("");
    EXPECT_TRUE(saved() == original);
}

TEST_F(OriginalTest, GetsAPictureAsAPartOfItsOwn) {
    const std::string original = originalFile();
    write(original);
    open();
    word->Selection()->EndKey(word::WdUnits::wdStory);
    word->Selection()->InlineShapes()->AddPicture(MERGELOOM_SAMPLES "/pictures/letterhead.png");
    const std::string file = saved();
    EXPECT_THAT(changedEntries(original, file),
                ElementsAre("[Content_Types].xml", "word/_rels/document.xml.rels", "word/document.xml",
                            "word/media/image1.png"));
    EXPECT_EQ(opc::Package::read(file, "saved").readPart("/word/media/image1.png"),
              disk.read(MERGELOOM_SAMPLES "/pictures/letterhead.png"));
}

TEST_F(OriginalTest, GetsAFloatingPicture) {
    const std::string original = originalFile();
    write(original);
    open();
    word->Selection()->EndKey(word::WdUnits::wdStory);
    insertFloatingPicture(MERGELOOM_SAMPLES "/pictures/letterhead.png");
    const std::string file = saved();
    EXPECT_THAT(changedEntries(original, file),
                ElementsAre("[Content_Types].xml", "word/_rels/document.xml.rels", "word/document.xml",
                            "word/media/image1.png"));
    EXPECT_THAT(opc::Package::read(file, "saved").readPart(kMainPart), HasSubstr("<wp:anchor"));
    // Its paragraph can still be edited.
    word->Selection()->EndKey(word::WdUnits::wdStory);
    word->Selection()->TypeText(" more");
    EXPECT_EQ(changedEntries(file, saved()), std::vector<std::string>{"word/document.xml"});
}

/// Reads the places with the engine of unattended runs, for both documents.
TEST_F(OriginalTest, GetsThePlacesOfAnUnattendedRun) {
    const std::string original = originalFile();
    write(original);
    open();
    for (const char* key : {kCity, kStreet}) {
        word->Selection()->EndKey(word::WdUnits::wdStory);
        ASSERT_TRUE(drop(key));
    }
    const std::string file = saved();
    document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    files.files["/engine.docx"] = original;
    word = embedded::makeWordApplication(files);
    document = word->Documents()->Open("/engine.docx");
    for (const char* key : {kCity, kStreet}) {
        word->Selection()->EndKey(word::WdUnits::wdStory);
        ASSERT_TRUE(drop(key));
    }
    document->Save();
    EXPECT_EQ(shownBody(file), shownBody(files.read("/engine.docx")));
}

TEST_F(OriginalTest, IsNotSpoiltMoreByManySavesThanByOne) {
    const auto type = [&](int number) {
        word->Selection()->EndKey(word::WdUnits::wdStory);
        word->Selection()->TypeText(" more " + std::to_string(number));
    };
    write(originalFile());
    open();
    std::string often;
    for (int number = 1; number <= 10; ++number) {
        type(number);
        often = saved();
    }
    document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    write(originalFile());
    open();
    for (int number = 1; number <= 10; ++number)
        type(number);
    EXPECT_TRUE(saved() == often);
    EXPECT_THAT(shownBody(often), HasSubstr("The last line. more 1 more 2"));
}

TEST_F(OriginalTest, StaysWhenAChangeHasNoRule) {
    const std::string original = originalFile();
    write(original);
    open();
    addHeader();
    try {
        document->Save();
        ADD_FAILURE() << "it was saved";
    } catch (const model::LossySave& loss) {
        EXPECT_THAT(loss.description(), HasSubstr("a header, a note, a comment or a text box was added"));
        EXPECT_THAT(loss.description(), HasSubstr("loses custom XML"));
        EXPECT_THAT(loss.bytes(), Not(IsEmpty()));
    }
    EXPECT_TRUE(disk.read(path) == original);
    EXPECT_FALSE(document->Saved());
    EXPECT_EQ(folder.entryCount(), 1);
    document->giveUpOriginal();
    EXPECT_FALSE(saved() == original);
    EXPECT_FALSE(document->keptEntries());
}

}  // namespace

}  // namespace mergeloom
