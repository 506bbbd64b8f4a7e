#include "office/opc/ZipReader.h"
#include "office/opc/ZipWriter.h"
#include "opc/ZipBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

using testing::HasSubstr;
using namespace std::string_literals;

const std::string kDocumentXml = "<w:document><w:body><w:p/><w:p/><w:p/><w:p/><w:p/></w:body></w:document>";

std::string readAll(const std::string& bytes, const ZipLimits& limits = {}) {
    return errorOf([&] {
        const ZipReader reader(bytes, "orders.dotx", limits);
        for (const ZipEntry& entry : reader.entries())
            (void)reader.read(entry);
    });
}

/// Returns a compound file with one directory entry.
std::string compoundFile(const std::string& streamName) {
    std::string entry;
    for (const char character : streamName)
        entry += {character, '\0'};
    const std::string length = le16(entry.size() + 2);
    entry.resize(64);
    entry += length + "\x02";
    entry.resize(128);
    return "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(1016, '\0') + entry;
}

// Archives as programs write them. A copy must have the same bytes.
TEST(ZipReader, readsAndCopiesLegalArchives) {
    struct Case {
        const char* what;
        std::vector<BuiltEntry> entries;
        BuiltArchive archive;
    };
    const BuiltEntry plain{.name = "word/document.xml", .content = kDocumentXml};
    const auto with = [&](auto change) {
        BuiltEntry entry = plain;
        change(entry);
        return std::vector<BuiltEntry>{plain, entry, {.name = "last", .content = "x", .deflated = false}};
    };
    const auto descriptor = [&](Descriptor kind, bool deflated) {
        return with([&](BuiltEntry& e) { e.name = "b", e.descriptor = kind, e.deflated = deflated; });
    };
    const std::vector<Case> cases = {
        {"one entry", {plain}, {}},
        {"no entries", {}, {}},
        {"empty part", {{.name = "empty", .content = ""}}, {}},
        {"stored", with([](BuiltEntry& e) { e.name = "b", e.deflated = false; }), {}},
        {"folder", with([](BuiltEntry& e) { e.name = "word/", e.content = "", e.deflated = false; }), {}},
        {"backslash", with([](BuiltEntry& e) { e.name = "word\\styles.xml"; }), {}},
        {"extra, comment",
         with([](BuiltEntry& e) { e.name = "b", e.extra = "UT\1\0x"s, e.comment = "hi"; }),
         {}},
        {"odd extra", with([](BuiltEntry& e) { e.name = "b", e.extra = "\x20\xA2\xFF"s; }), {}},
        {"ZIP64 entry", with([](BuiltEntry& e) { e.name = "b", e.zip64 = true; }), {}},
        {"ZIP64 end", {plain}, {.zip64 = true}},
        {"descriptor", descriptor(Descriptor::Plain, true), {}},
        {"signed descriptor", descriptor(Descriptor::Signed, true), {}},
        {"wide descriptor", descriptor(Descriptor::Plain64, true), {}},
        {"signed wide descriptor", descriptor(Descriptor::Signed64, false), {}},
        {"descriptor left out", descriptor(Descriptor::Omitted, true), {}},
        {"archive comment", {plain}, {.comment = "made by hand PK\5\6"}},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        const std::string bytes = buildZip(one.entries, one.archive);
        const ZipReader reader(bytes, "orders.dotx");
        ASSERT_EQ(reader.entries().size(), one.entries.size());
        StringSink sink;
        ZipWriter writer(sink);
        for (std::size_t i = 0; i < one.entries.size(); ++i) {
            EXPECT_EQ(reader.entries()[i].name, one.entries[i].name);
            EXPECT_EQ(reader.read(reader.entries()[i]), one.entries[i].content);
            writer.copy(reader.entries()[i]);
        }
        writer.finish(reader.comment());
        // The ZIP64 end records are not needed for a small archive, so they are not written again.
        BuiltArchive plainEnd = one.archive;
        plainEnd.zip64 = false;
        EXPECT_EQ(sink.text, buildZip(one.entries, plainEnd));
    }
}

TEST(ZipReader, refusesWithAReason) {
    struct Case {
        std::string bytes;
        const char* reason;
    };
    const auto one = [](auto change) {
        BuiltEntry entry{.name = "word/document.xml", .content = kDocumentXml};
        change(entry);
        return buildZip({{.name = "first", .content = kDocumentXml}, entry});
    };
    const auto named = [&](const std::string& name) { return one([&](BuiltEntry& e) { e.name = name; }); };
    const std::vector<BuiltEntry> good = {{.name = "a.xml", .content = kDocumentXml}};
    const std::string whole = buildZip(good);
    const std::vector<Case> cases = {
        {"", "it is empty"},
        {"{\\rtf1}", "no zip archive"},
        {"MZ" + whole, "no zip archive"},
        {compoundFile("EncryptedPackage"), "it is encrypted"},
        {compoundFile("WordDocument"), "old binary document"},
        {whole.substr(0, whole.size() - 1), "the end of its zip archive is missing"},
        {whole.substr(0, 40), "the end of its zip archive is missing"},
        {whole + "tail", "the end of its zip archive is missing"},
        {whole.substr(10), "no zip archive"},
        {"PK\3\4" + whole, "directory of its zip archive is damaged"},
        {buildZip(good, {.prefix = "PK\3\4junk"}), "foreign bytes before the first entry"},
        {buildZip(good, {.countLie = 1}), "directory of its zip archive is damaged"},
        {buildZip({good[0], {.name = "b", .content = "b"}}, {.countLie = -1}), "holds more than it declares"},
        {buildZip(good, {.disk = 1}), "split over several files"},
        {buildZip(good, {.zip64 = true, .countLie = 70000}), "more than 65536 entries"},
        {one([](BuiltEntry& e) { e.flags = 1; }), "\"word/document.xml\" is encrypted"},
        {one([](BuiltEntry& e) { e.flags = 1U << 13U; }), "is encrypted"},
        {one([](BuiltEntry& e) { e.method = 14; }), "a method that packages do not use (14)"},
        {one([](BuiltEntry& e) { e.localName = "word/documenT.xml"; }), "contradicts the directory"},
        {one([](BuiltEntry& e) { e.crcLie = 1; }), "its checksum is wrong"},
        {one([](BuiltEntry& e) { e.sizeLie = 1; }), "does not have the size that it declares"},
        {one([](BuiltEntry& e) { e.sizeLie = -1; }), "does not have the size that it declares"},
        {one([](BuiltEntry& e) { e.deflated = false, e.sizeLie = 5; }),
         "declares a size that it does not have"},
        {one([](BuiltEntry& e) { e.offsetLie = -10; }), "overlaps what follows it"},
        {one([](BuiltEntry& e) { e.offsetLie = 3; }), "\"word/document.xml\" has no header"},
        {one([](BuiltEntry& e) { e.offsetLie = 100000; }), "lies outside of the file"},
        {named("/etc/passwd"), "absolute path"},
        {named("\\\\server\\share"), "absolute path"},
        {named("C:\\word.xml"), "absolute path"},
        {named("word/../../x"), "path with \".\" or \"..\""},
        {named("word\\..\\x"), "path with \".\" or \"..\""},
        {named("word/%2E%2e/x"), "path with \".\" or \"..\""},
        {named("word%5C..%5cx"), "path with \".\" or \"..\""},
        {named("word//x"), "empty folder name"},
        {named("word/a\0b"s), "control character"},
        {named(""), "has no name"},
        {one([](BuiltEntry& e) { e.name = "\xFF\xFE", e.flags = 1U << 11U; }), "is not UTF-8"},
        {named("FIRST"), "two entries of the name \"FIRST\""},
        {named("%66irst"), "two entries of the name"},
    };
    for (const Case& refused : cases) {
        const std::string error = readAll(refused.bytes);
        EXPECT_THAT(error, HasSubstr("The file \"orders.dotx\" could not be read: "));
        EXPECT_THAT(error, HasSubstr(refused.reason));
    }
}

TEST(ZipReader, namesAreDecoded) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"caf\x82.xml", "café.xml"}, {"caf\xC3\xA9.xml", "café.xml"}, {"\xE1.xml", "ß.xml"}};
    for (const auto& [stored, decoded] : cases) {
        const std::string bytes = buildZip({{.name = stored, .content = "x"}});
        EXPECT_EQ(ZipReader(bytes, "f").entries()[0].name, decoded);
    }
}

// Two records refer to the same data, which archives use to become much larger when they are unpacked.
TEST(ZipReader, refusesOverlappingEntries) {
    const BuiltEntry a{.name = "a", .content = kDocumentXml};
    const BuiltEntry b{.name = "b", .content = kDocumentXml};
    const std::string both = buildZip({a, b});
    std::string bytes = both;
    const std::size_t record = bytes.rfind("PK\x01\x02");
    const std::size_t secondHeader = bytes.find("PK\x03\x04", 4);
    bytes.replace(record + 42, 4, le32(0));
    EXPECT_THAT(readAll(bytes), HasSubstr("overlaps what follows it"));
    // The first entry's declared data reach into the second one.
    bytes = both;
    const std::size_t firstRecord = bytes.find("PK\x01\x02");
    const std::string longer = le32(secondHeader);
    bytes.replace(18, 4, longer);
    bytes.replace(firstRecord + 20, 4, longer);
    EXPECT_THAT(readAll(bytes), HasSubstr("overlaps what follows it"));
}

TEST(ZipReader, boundsWhatInflatingYields) {
    const std::string zeros(std::size_t{3} << 20U, '\0');
    const std::string bomb = buildZip({{.name = "a", .content = zeros}, {.name = "b", .content = zeros}});
    EXPECT_EQ(readAll(bomb), "");
    EXPECT_THAT(readAll(bomb, {.entrySize = 1000}), HasSubstr("\"a\" is too large when unpacked"));
    EXPECT_THAT(readAll(bomb, {.inflatedSize = zeros.size() + 1}), HasSubstr("too large when unpacked"));
    EXPECT_THAT(readAll(bomb, {.ratioFreeSize = zeros.size() - 1}), HasSubstr("too large when unpacked"));
    EXPECT_EQ(readAll(bomb, {.ratioFreeSize = zeros.size()}), "");
    // A false huge size is refused before its memory is allocated.
    const std::string liar = buildZip({{.name = "a", .content = kDocumentXml, .sizeLie = 500 << 20}});
    EXPECT_THAT(readAll(liar), HasSubstr("too large when unpacked"));
    EXPECT_THAT(readAll(liar, {.maxRatio = 1U << 30U}), HasSubstr("does not have the size"));
}

// After changed or missing bytes there is an error or an archive, but no crash.
TEST(ZipReader, survivesDamage) {
    std::vector<BuiltEntry> entries = documentEntries();
    entries[1].descriptor = Descriptor::Signed;
    entries[2].zip64 = true;
    const std::string good = buildZip(entries, {.comment = "comment", .zip64 = true});
    ASSERT_EQ(readAll(good), "");
    std::size_t refused = 0;
    for (std::size_t i = 0; i < good.size(); ++i) {
        refused += readAll(good.substr(0, i)).empty() ? 0 : 1;
        for (const char flip : {'\x01', '\x80', '\xFF'}) {
            std::string bytes = good;
            bytes[i] = static_cast<char>(bytes[i] ^ flip);
            (void)readAll(bytes);
        }
    }
    EXPECT_EQ(refused, good.size());
}

}  // namespace
}  // namespace mergeloom::opc
