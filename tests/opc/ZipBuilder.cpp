#include "opc/ZipBuilder.h"

#include <libdeflate.h>

namespace mergeloom::opc {

namespace {

constexpr std::uint16_t kDescriptorFlag = 8;

std::string littleEndian(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>((number >> (8 * i)) & 0xFF);
    return text;
}

std::string deflated(const std::string& content) {
    libdeflate_compressor* compressor = libdeflate_alloc_compressor(6);
    std::string output(libdeflate_deflate_compress_bound(compressor, content.size()), '\0');
    output.resize(libdeflate_deflate_compress(compressor, content.data(), content.size(), output.data(),
                                              output.size()));
    libdeflate_free_compressor(compressor);
    return output;
}

struct Fields {
    std::string data;
    std::uint64_t crc = 0;
    std::uint64_t size = 0;
    std::uint64_t method = 0;
    std::uint64_t flags = 0;
};

Fields fieldsOf(const BuiltEntry& entry) {
    Fields fields;
    fields.data = entry.deflated ? deflated(entry.content) : entry.content;
    fields.crc = libdeflate_crc32(0, entry.content.data(), entry.content.size()) + entry.crcLie;
    fields.size = entry.content.size() + static_cast<std::uint64_t>(entry.sizeLie);
    fields.method = entry.method >= 0 ? static_cast<std::uint64_t>(entry.method) : (entry.deflated ? 8 : 0);
    fields.flags = entry.flags | (entry.descriptor == Descriptor::None ? 0 : kDescriptorFlag);
    return fields;
}

std::string zip64Field(const std::string& data) {
    return le16(1) + le16(data.size()) + data;
}

std::string descriptorOf(Descriptor kind, const Fields& fields) {
    const std::string crc = le32(fields.crc);
    const std::string narrow = le32(fields.data.size()) + le32(fields.size);
    const std::string wide = le64(fields.data.size()) + le64(fields.size);
    switch (kind) {
        case Descriptor::Plain:
            return crc + narrow;
        case Descriptor::Signed:
            return "PK\x07\x08" + crc + narrow;
        case Descriptor::Plain64:
            return crc + wide;
        case Descriptor::Signed64:
            return "PK\x07\x08" + crc + wide;
        default:
            return {};
    }
}

std::string localHeader(const BuiltEntry& entry, const Fields& fields) {
    const bool later = entry.descriptor != Descriptor::None;
    const std::string name = entry.localName.empty() ? entry.name : entry.localName;
    std::string extra = entry.extra;
    if (entry.zip64)
        extra += zip64Field(le64(later ? 0 : fields.size) + le64(later ? 0 : fields.data.size()));
    const std::string sizes = entry.zip64 ? le32(0xFFFFFFFF) + le32(0xFFFFFFFF)
                              : later     ? le32(0) + le32(0)
                                          : le32(fields.data.size()) + le32(fields.size);
    return "PK\x03\x04" + le16(45) + le16(fields.flags) + le16(fields.method) + le32(0x5A8B1234) +
           le32(later ? 0 : fields.crc) + sizes + le16(name.size()) + le16(extra.size()) + name + extra;
}

std::string centralRecord(const BuiltEntry& entry, const Fields& fields, std::uint64_t offset) {
    std::string extra = entry.extra;
    if (entry.zip64) extra += zip64Field(le64(fields.size) + le64(fields.data.size()) + le64(offset));
    const std::string sizes =
        entry.zip64 ? le32(0xFFFFFFFF) + le32(0xFFFFFFFF) : le32(fields.data.size()) + le32(fields.size);
    return "PK\x01\x02" + le16(0x031E) + le16(45) + le16(fields.flags) + le16(fields.method) +
           le32(0x5A8B1234) + le32(fields.crc) + sizes + le16(entry.name.size()) + le16(extra.size()) +
           le16(entry.comment.size()) + le16(0) + le16(1) + le32(0x81A40000) +
           le32(entry.zip64 ? 0xFFFFFFFF : offset) + entry.name + extra + entry.comment;
}

}  // namespace

std::string le16(std::uint64_t number) {
    return littleEndian(number, 2);
}
std::string le32(std::uint64_t number) {
    return littleEndian(number, 4);
}
std::string le64(std::uint64_t number) {
    return littleEndian(number, 8);
}

std::string buildZip(const std::vector<BuiltEntry>& entries, const BuiltArchive& archive) {
    std::string bytes = archive.prefix;
    std::string directory;
    for (const BuiltEntry& entry : entries) {
        const Fields fields = fieldsOf(entry);
        const std::uint64_t offset = bytes.size() + static_cast<std::uint64_t>(entry.offsetLie);
        directory += centralRecord(entry, fields, offset);
        bytes += localHeader(entry, fields) + fields.data + descriptorOf(entry.descriptor, fields);
    }
    bytes += archive.gapBeforeDirectory;
    const std::uint64_t offset = bytes.size();
    const std::uint64_t count = entries.size() + static_cast<std::uint64_t>(archive.countLie);
    bytes += directory;
    if (archive.zip64) {
        const std::uint64_t position = bytes.size();
        bytes += "PK\x06\x06" + le64(44) + le16(45) + le16(45) + le32(0) + le32(0) + le64(count) +
                 le64(count) + le64(directory.size()) + le64(offset);
        bytes += "PK\x06\x07" + le32(0) + le64(position) + le32(1);
    }
    const auto narrow = [&](std::uint64_t value) { return le32(archive.zip64 ? 0xFFFFFFFF : value); };
    const std::string count16 = le16(archive.zip64 ? 0xFFFF : count);
    return bytes + "PK\x05\x06" + le16(archive.disk) + le16(0) + count16 + count16 +
           narrow(directory.size()) + narrow(offset) + le16(archive.comment.size()) + archive.comment;
}

std::vector<BuiltEntry> documentEntries() {
    const std::string types =
        "<?xml version=\"1.0\"?><Types "
        "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
        "<Default Extension=\"rels\" "
        "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
        "<Default Extension=\"XML\" ContentType=\"application/xml\"/>"
        "<Override PartName=\"/word/document.xml\" ContentType=\"main\"/></Types>";
    const std::string relationships =
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
        "<Relationship Id=\"rId1\" "
        "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
        "officeDocument\" Target=\"word/document.xml\"/></Relationships>";
    return {{"[Content_Types].xml", types},
            {"_rels/.rels", relationships},
            {"word/document.xml", "<w:document><w:body><w:p/><w:p/><w:p/></w:body></w:document>"}};
}

}  // namespace mergeloom::opc
