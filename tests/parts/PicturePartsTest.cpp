#include "base/FileStore.h"
#include "office/embedded/parts/PictureParts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using testing::ElementsAre;

const std::string kDocument = "/word/document.xml";
const std::string kHeader = "/word/header1.xml";

std::string gif(const std::string& pixels) {
    return std::string("GIF89a\2\0\2\0\0\0\0", 13) + pixels;
}

std::string addTo(PictureParts& pictures, const std::string& documentPart, const std::string& bytes) {
    return pictures.add(documentPart, bytes, opc::PictureFile::read(bytes, "logo.gif"));
}

class StringSink : public ByteSink {
  public:
    void write(std::span<const char> bytes) override { text.append(bytes.data(), bytes.size()); }

    std::string text;
};

TEST(PictureParts, addsEachPictureOnce) {
    opc::Package package = opc::Package::empty();
    package.addPart("/word/media/IMAGE2.png", "image/png", "another");
    PictureParts pictures(package);
    const std::string first = addTo(pictures, kDocument, gif("a"));
    const std::string second = addTo(pictures, kDocument, gif("b"));
    EXPECT_NE(first, second);
    EXPECT_EQ(addTo(pictures, kDocument, gif("a")), first);
    (void)addTo(pictures, kHeader, gif("b"));
    EXPECT_THAT(package.partNames(),
                ElementsAre("/word/media/IMAGE2.png", "/word/media/image1.gif", "/word/media/image3.gif"));
    EXPECT_EQ(package.contentTypes().of("/word/media/image9.gif"), "image/gif");
    const opc::Relationships& ofHeader = package.relationshipsOf(kHeader);
    ASSERT_EQ(ofHeader.all().size(), 1U);
    EXPECT_EQ(ofHeader.targetPart(ofHeader.all()[0]), "/word/media/image3.gif");
    EXPECT_EQ(package.relationshipsOf(kDocument).find(second)->target, "media/image3.gif");
    EXPECT_EQ(package.readPart("/word/media/image3.gif"), gif("b"));
}

TEST(PictureParts, usesWhatThePackageHolds) {
    opc::Package package = opc::Package::empty();
    PictureParts earlier(package);
    const std::string id = addTo(earlier, kDocument, gif("a"));
    StringSink sink;
    package.write(sink);

    opc::Package again = opc::Package::read(sink.text, "orders.docx");
    PictureParts pictures(again);
    EXPECT_EQ(addTo(pictures, kDocument, gif("a")), id);
    EXPECT_EQ(again.partNames().size(), 1U);
    EXPECT_FALSE(again.contentTypes().isChanged());
}

TEST(PictureParts, addsAgainWhatAnUndoneDropTookOut) {
    opc::Package package = opc::Package::empty();
    PictureParts pictures(package);
    const std::string id = addTo(pictures, kDocument, gif("a"));
    package.removePart("/word/media/image1.gif");
    package.relationshipsOf(kDocument).remove(id);
    const std::string second = addTo(pictures, kDocument, gif("a"));
    const opc::Relationships& relationships = package.relationshipsOf(kDocument);
    ASSERT_NE(relationships.find(second), nullptr);
    EXPECT_TRUE(package.hasPart(relationships.targetPart(*relationships.find(second))));
}

TEST(PictureParts, putsPicturesIntoTheFolderThatIsAskedFor) {
    opc::Package package = opc::Package::empty();
    PictureParts pictures(package);
    const std::string drawing = "/xl/drawings/drawing1.xml";
    const opc::PictureFile file = opc::PictureFile::read(gif("a"), "logo.gif");
    const std::string id = pictures.add(drawing, "/xl/media/", gif("a"), file);
    const opc::Relationships& relationships = package.relationshipsOf(drawing);
    EXPECT_EQ(relationships.targetPart(*relationships.find(id)), "/xl/media/image1.gif");
    EXPECT_TRUE(package.hasPart("/xl/media/image1.gif"));
}

TEST(PictureParts, takesAPictureOutWithItsLastRelationship) {
    const std::string picture = "/word/media/image1.gif";
    opc::Package package = opc::Package::empty();
    package.addPart(kDocument, "text/xml", "<d/>");
    package.addPart(kHeader, "text/xml", "<h/>");
    PictureParts pictures(package);
    const std::string inDocument = addTo(pictures, kDocument, gif("a"));
    const std::string inHeader = addTo(pictures, kHeader, gif("a"));
    const ReleasedPicture first = pictures.release(kDocument, inDocument);
    EXPECT_FALSE(first.bytes);
    EXPECT_EQ(package.relationshipsOf(kDocument).find(inDocument), nullptr);
    EXPECT_TRUE(package.hasPart(picture));
    const ReleasedPicture last = pictures.release(kHeader, inHeader);
    EXPECT_FALSE(package.hasPart(picture));

    pictures.restore(kHeader, last);
    EXPECT_EQ(package.readPart(picture), gif("a"));
    opc::Relationships& ofHeader = package.relationshipsOf(kHeader);
    EXPECT_EQ(ofHeader.targetPart(*ofHeader.find(inHeader)), picture);
    (void)addTo(pictures, kDocument, gif("a"));
    (void)pictures.release(kHeader, inHeader);
    EXPECT_TRUE(package.hasPart(picture));
}

TEST(PictureParts, keepsThePictureOfThePackageItself) {
    opc::Package package = opc::Package::empty();
    package.addPart(kDocument, "text/xml", "<d/>");
    PictureParts pictures(package);
    const std::string id = addTo(pictures, kDocument, gif("a"));
    package.relationshipsOf("/").addPart(
        "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
        "/word/media/image1.gif");
    (void)pictures.release(kDocument, id);
    EXPECT_TRUE(package.hasPart("/word/media/image1.gif"));
}

TEST(PictureParts, doesNotTakeAnothersRelationshipForItsOwn) {
    opc::Package package = opc::Package::empty();
    PictureParts earlier(package);
    const std::string id = addTo(earlier, kDocument, gif("a"));
    StringSink sink;
    package.write(sink);
    opc::Package again = opc::Package::read(sink.text, "orders.docx");
    PictureParts pictures(again);
    (void)pictures.release(kDocument, addTo(pictures, kDocument, gif("a")));
    // The id is free again, and the next picture gets it.
    EXPECT_EQ(addTo(pictures, kDocument, gif("b")), id);
    EXPECT_NE(addTo(pictures, kDocument, gif("a")), id);
}

TEST(PictureParts, namesATypeThatTheExtensionDoesNotGive) {
    opc::Package package = opc::Package::empty();
    package.contentTypes().ensureDefault("gif", "image/other");
    PictureParts pictures(package);
    (void)addTo(pictures, kDocument, gif("a"));
    EXPECT_EQ(package.contentTypes().of("/word/media/image1.gif"), "image/gif");
    EXPECT_EQ(package.contentTypes().of("/word/media/image2.gif"), "image/other");
}

}  // namespace
}  // namespace mergeloom::embedded
