#include "office/opc/ZipReader.h"
#include "office/opc/ZipWriter.h"
#include "opc/ZipBuilder.h"

#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

/// A sink that keeps only the last bytes, so that the test of gigabytes needs no memory.
class TailSink : public ByteSink {
  public:
    void write(std::span<const char> bytes) override {
        size += bytes.size();
        if (bytes.size() < (1U << 20U)) tail.append(bytes.data(), bytes.size());
    }

    std::uint64_t size = 0;
    std::string tail;
};

TEST(ZipWriter, writesWhatTheReaderReads) {
    const std::string repetitive(100000, 'x');
    struct Case {
        std::string name;
        std::string content;
        Packing packing;
        std::uint16_t method;
    };
    const std::vector<Case> cases = {{"word/document.xml", repetitive, Packing::Deflate, 8},
                                     {"word/media/a.png", repetitive, Packing::Store, 0},
                                     {"word/tiny.xml", "ab", Packing::Deflate, 0},
                                     {"word/caf\xC3\xA9.xml", repetitive, Packing::Deflate, 8},
                                     {"empty", "", Packing::Deflate, 0}};
    StringSink sink;
    ZipWriter writer(sink);
    for (const Case& one : cases)
        writer.add(one.name, pack(one.content, one.packing));
    writer.finish("");
    const ZipReader reader(sink.text, "f");
    ASSERT_EQ(reader.entries().size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(reader.entries()[i].name, cases[i].name);
        EXPECT_EQ(reader.entries()[i].method, cases[i].method);
        EXPECT_EQ(reader.read(reader.entries()[i]), cases[i].content);
    }
}

// 65 entries of 64 MB are more than 4 GB, so the last records need offsets of 64 bits. There are three kinds
// of records: one without extra fields, one whose ZIP64 field lacks the offset, and one whose field has it.
TEST(ZipWriter, usesZip64WhenOffsetsNeedIt) {
    const std::string large(std::size_t{64} << 20U, 'x');
    const std::string bytes = buildZip({{.name = "large", .content = large, .deflated = false}});
    const std::string small = buildZip({{.name = "wide", .content = "x", .zip64 = true}});
    const ZipReader largeReader(bytes, "f");
    const ZipReader smallReader(small, "f");
    std::string offsetless(smallReader.entries()[0].centralRecord);
    offsetless.replace(42, 4, le32(0));
    offsetless.replace(30, 2, le16(20));
    offsetless.replace(46 + 4 + 2, 2, le16(16));
    offsetless.resize(offsetless.size() - 8);
    ZipEntry withoutOffset = smallReader.entries()[0];
    withoutOffset.centralRecord = offsetless;

    TailSink sink;
    ZipWriter writer(sink);
    for (int i = 0; i < 65; ++i)
        writer.copy(largeReader.entries()[0]);
    const std::uint64_t offset = sink.size;
    ASSERT_GT(offset, std::uint64_t{1} << 32U);
    writer.copy(smallReader.entries()[0]);
    writer.copy(withoutOffset);
    writer.add("new", pack("new", Packing::Deflate));
    writer.finish("");

    // The tail consists of the small entries, the directory and the end records.
    const std::size_t directory = sink.tail.find("PK\x01\x02");
    const std::string records = sink.tail.substr(directory);
    const std::string end = records.substr(records.find("PK\x06\x06"));
    const std::uint64_t directoryOffset = sink.size - records.size();
    EXPECT_EQ(end.substr(24, 16), le64(68) + le64(68));
    EXPECT_EQ(end.substr(48, 8), le64(directoryOffset));
    EXPECT_EQ(end.substr(56 + 8, 8), le64(sink.size - end.size()));
    EXPECT_EQ(end.substr(56 + 20 + 16, 4), le32(0xFFFFFFFF));
    const std::uint64_t smallSize = smallReader.entries()[0].raw.size();
    const std::string sizes = le64(1) + le64(smallReader.entries()[0].compressedSize);
    const std::string both = "wide" + le16(1) + le16(24) + sizes;
    EXPECT_NE(records.find(both + le64(offset)), std::string::npos);
    EXPECT_NE(records.find(both + le64(offset + smallSize)), std::string::npos);
    EXPECT_NE(records.find("new" + le16(1) + le16(8) + le64(offset + 2 * smallSize)), std::string::npos);
}

TEST(ZipWriter, usesZip64WhenTheCountNeedsIt) {
    constexpr int kCount = 65535;
    StringSink sink;
    ZipWriter writer(sink);
    const PackedContent content = pack("x", Packing::Store);
    for (int i = 0; i < kCount; ++i)
        writer.add(std::to_string(i), content);
    writer.finish("");
    EXPECT_NE(sink.text.rfind("PK\x06\x06"), std::string::npos);
    EXPECT_EQ(ZipReader(sink.text, "f").entries().size(), std::size_t{kCount});
}

}  // namespace
}  // namespace mergeloom::opc
