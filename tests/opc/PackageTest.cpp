#include "base/AutomationError.h"
#include "office/opc/Package.h"
#include "opc/ZipBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string written(Package& package) {
    StringSink sink;
    package.write(sink);
    return sink.text;
}

BuiltEntry& entryOf(std::vector<BuiltEntry>& entries, const std::string& name) {
    for (BuiltEntry& entry : entries) {
        if (entry.name == name) return entry;
    }
    throw std::out_of_range(name);
}

std::string rawEntry(const std::string& bytes, const std::string& name) {
    const ZipReader reader(bytes, "f");
    for (const ZipEntry& entry : reader.entries()) {
        if (entry.name == name) return std::string(entry.raw);
    }
    return "missing";
}

std::vector<BuiltEntry> oddDocument() {
    std::vector<BuiltEntry> entries = documentEntries();
    entries.push_back(
        {.name = "word\\media\\Image 1.png", .content = "picture", .descriptor = Descriptor::Signed});
    entries.push_back({.name = "word/", .content = "", .deflated = false});
    entries.push_back({.name = "customXml/item1.xml", .content = "<a/>", .extra = "UT" + le16(1) + "x"});
    return entries;
}

TEST(Package, untouchedStaysByteForByte) {
    const std::string bytes = buildZip(oddDocument(), {.comment = "comment"});
    Package package = Package::read(bytes, "orders.docx");
    EXPECT_EQ(package.mainPart(), "/word/document.xml");
    EXPECT_TRUE(package.hasPart("/WORD/media/image%201.PNG"));
    EXPECT_EQ(package.readPart("word/media/image 1.png"), "picture");
    EXPECT_THAT(package.partNames(),
                ElementsAre("/word/document.xml", "/word/media/Image 1.png", "/customXml/item1.xml"));
    (void)package.relationshipsOf("/word/document.xml");
    EXPECT_EQ(written(package), bytes);
}

TEST(Package, replacesInPlaceAndAppends) {
    const std::string bytes = buildZip(oddDocument(), {.comment = "comment"});
    Package package = Package::read(bytes, "orders.docx");
    package.writePart("/Word/Document.xml", "<new/>");
    package.addPart("/word/media/image2.png", "image/png", "second");
    package.addPart("/word/custom.xml", "application/xml", "<c/>");
    const std::string id =
        package.relationshipsOf("/word/document.xml").addPart("type", "/word/media/image2.png");
    const std::string saved = written(package);

    Package again = Package::read(saved, "orders.docx");
    EXPECT_THAT(again.partNames(),
                ElementsAre("/word/document.xml", "/word/media/Image 1.png", "/customXml/item1.xml",
                            "/word/media/image2.png", "/word/custom.xml"));
    EXPECT_EQ(again.readPart("/word/document.xml"), "<new/>");
    EXPECT_EQ(again.contentTypes().of("/word/media/image2.png"), "image/png");
    // The type that the extension gives needs no override of its own.
    EXPECT_THAT(again.readPart("/[Content_Types].xml"), testing::Not(HasSubstr("/word/custom.xml")));
    const Relationships& relationships = again.relationshipsOf("/word/document.xml");
    ASSERT_NE(relationships.find(id), nullptr);
    EXPECT_EQ(relationships.find(id)->target, "media/image2.png");
    for (const char* name : {"_rels/.rels", "word\\media\\Image 1.png", "word/", "customXml/item1.xml"}) {
        EXPECT_EQ(rawEntry(saved, name), rawEntry(bytes, name)) << name;
    }
    EXPECT_TRUE(saved.ends_with("comment"));
}

TEST(Package, canBeWrittenReadAndChangedAgain) {
    Package package = Package::read(buildZip(documentEntries()), "orders.docx");
    const std::string large(300000, 'x');
    package.writePart("/word/document.xml", large);
    const std::string first = written(package);
    EXPECT_EQ(written(package), first);
    EXPECT_EQ(package.readPart("/word/document.xml"), large);
    package.writePart("/word/document.xml", "<other/>");
    Package again = Package::read(written(package), "f");
    EXPECT_EQ(again.readPart("/word/document.xml"), "<other/>");
}

/// A sink whose n-th write fails.
class FailingSink : public ByteSink {
  public:
    explicit FailingSink(int writes) : writes_(writes) {}
    void write(std::span<const char> /*bytes*/) override {
        if (writes_-- == 0) throw AutomationError(kFileCouldNotBeSaved, "full");
    }
    [[nodiscard]] bool failed() const { return writes_ < 0; }

  private:
    int writes_;
};

TEST(Package, isWholeAfterAFailedWrite) {
    const auto changed = [] {
        Package package = Package::read(buildZip(oddDocument()), "orders.docx");
        package.writePart("/word/document.xml", "<new/>");
        (void)package.relationshipsOf("/word/document.xml").addPart("type", "/word/new.xml");
        return package;
    };
    Package undisturbed = changed();
    const std::string expected = written(undisturbed);
    for (int n = 0;; ++n) {
        Package package = changed();
        FailingSink sink(n);
        try {
            package.write(sink);
        } catch (const AutomationError&) {
        }
        EXPECT_EQ(written(package), expected) << n;
        if (!sink.failed()) break;
    }
}

TEST(Package, survivesMoves) {
    const std::string bytes = buildZip(documentEntries());
    std::vector<Package> packages;
    packages.reserve(1);
    for (int i = 0; i < 5; ++i)
        packages.push_back(Package::read(bytes, "orders.docx"));
    Package moved = std::move(packages.front());
    packages.clear();
    EXPECT_EQ(moved.mainPart(), "/word/document.xml");
    EXPECT_EQ(written(moved), bytes);
}

TEST(Package, newOneIsComplete) {
    Package package = Package::empty();
    package.addPart("/word/document.xml", "main", "<w:document/>");
    (void)package.relationshipsOf("/").addPart(officeRelationshipType("officeDocument", Conformance::Strict),
                                               "/word/document.xml");
    const std::string bytes = written(package);
    Package again = Package::read(bytes, "new.docx");
    EXPECT_EQ(again.mainPart(), "/word/document.xml");
    EXPECT_EQ(again.conformance(), Conformance::Strict);
    EXPECT_EQ(again.contentTypes().of("/word/document.xml"), "main");
    EXPECT_EQ(again.contentTypes().of("/_rels/.rels"),
              "application/vnd.openxmlformats-package.relationships+xml");
    EXPECT_EQ(ZipReader(bytes, "f").entries()[0].name, "[Content_Types].xml");
}

TEST(Package, removesAPartWithAllThatIsItsOwn) {
    std::vector<BuiltEntry> entries = documentEntries();
    entries.push_back(
        {.name = "word/_rels/document.xml.rels",
         .content = "<Relationships><Relationship Id='a' Type='b' Target='c'/></Relationships>"});
    Package package = Package::read(buildZip(entries), "orders.docx");
    (void)package.relationshipsOf("/word/document.xml").addPart("type", "/word/x.xml");
    package.removePart("/word/document.xml");
    EXPECT_FALSE(package.hasPart("/word/document.xml"));
    EXPECT_TRUE(package.relationshipsOf("/word/document.xml").all().empty());
    Package again = Package::read(written(package), "orders.docx");
    EXPECT_FALSE(again.hasPart("/word/document.xml"));
    EXPECT_FALSE(again.hasPart("/word/_rels/document.xml.rels"));
    EXPECT_EQ(again.contentTypes().of("/word/document.xml"), "application/xml");
    EXPECT_THAT(errorOf([&] { (void)again.mainPart(); }), HasSubstr("\"/word/document.xml\" is missing"));
}

TEST(Package, knowsSignatures) {
    std::vector<BuiltEntry> byPart = documentEntries();
    byPart.push_back({.name = "_XmlSignatures/sig1.xml", .content = "<Signature/>"});
    std::vector<BuiltEntry> byType = documentEntries();
    std::string& rels = entryOf(byType, "_rels/.rels").content;
    const std::string origin =
        "<Relationship Id='s' Type='http://schemas.openxmlformats.org/package/2006/"
        "relationships/digital-signature/origin' Target='s'/>";
    rels.insert(rels.find("</Relationships>"), origin);
    EXPECT_FALSE(Package::read(buildZip(documentEntries()), "f").isSigned());
    EXPECT_TRUE(Package::read(buildZip(byPart), "f").isSigned());
    EXPECT_TRUE(Package::read(buildZip(byType), "f").isSigned());
}

TEST(Package, refusesWithAReason) {
    struct Case {
        const char* entry;
        const char* content;
        const char* reason;
    };
    const std::vector<Case> cases = {
        {"[Content_Types].xml", "<Types", "\"/[Content_Types].xml\" is malformed"},
        {"[Content_Types].xml", "", "\"/[Content_Types].xml\" is malformed"},
        {"[Content_Types].xml", "<!DOCTYPE Types [<!ENTITY a 'b'>]><Types/>", "document type declaration"},
        {"[Content_Types].xml", "<Other/>", "has no root element \"Types\""},
        {"[Content_Types].xml", "<Types><Default Extension='x'/></Types>", "incomplete element"},
        {"[Content_Types].xml",
         "<Types><Override PartName='/a' ContentType='x'/><Override PartName='/A' "
         "ContentType='y'/></Types>",
         "names \"/A\" twice"},
        {"_rels/.rels", "<Relationships></b>", "\"/_rels/.rels\" is malformed"},
        {"_rels/.rels", "<!DOCTYPE a><Relationships/>", "document type declaration"},
        {"_rels/.rels", "<Relationships><Relationship Id='a' Type='b'/></Relationships>", "incomplete"},
        {"_rels/.rels",
         "<Relationships><Relationship Id='a' Type='b' Target='c'/>"
         "<Relationship Id='a' Type='b' Target='c'/></Relationships>",
         "of the id \"a\""},
        {"_rels/.rels", "<Relationships/>", "has no main part"},
    };
    for (const Case& one : cases) {
        std::vector<BuiltEntry> entries = documentEntries();
        entryOf(entries, one.entry).content = one.content;
        const std::string error =
            errorOf([&] { (void)Package::read(buildZip(entries), "orders.docx").mainPart(); });
        EXPECT_THAT(error, HasSubstr("The file \"orders.docx\" could not be read: "));
        EXPECT_THAT(error, HasSubstr(one.reason));
    }
    const std::string noTypes = buildZip({{.name = "word/document.xml", .content = "<a/>"}});
    EXPECT_THAT(errorOf([&] { (void)Package::read(noTypes, "a.zip"); }),
                HasSubstr("without \"[Content_Types]"));
}

// Flipped bytes may leave a package that can be read, edited and saved, or an error, never a crash.
TEST(Package, survivesDamage) {
    const std::string good = buildZip(oddDocument());
    for (std::size_t i = 0; i < good.size(); ++i) {
        std::string bytes = good;
        bytes[i] = static_cast<char>(bytes[i] ^ '\x5A');
        (void)errorOf([&] {
            Package package = Package::read(bytes, "orders.docx");
            package.writePart(package.mainPart(), "<new/>");
            for (const std::string& name : package.partNames())
                (void)package.readPart(name);
            (void)Package::read(written(package), "again");
        });
    }
}

}  // namespace
}  // namespace mergeloom::opc
