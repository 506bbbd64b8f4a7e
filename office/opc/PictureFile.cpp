#include "office/opc/PictureFile.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/Codec.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <map>

using namespace std::string_view_literals;

namespace mergeloom::opc {

namespace {

constexpr std::int64_t kMetresPerTenThousandInches = 254;

std::int64_t perInch(std::int64_t perMetre) {
    return (perMetre * kMetresPerTenThousandInches + 5000) / 10000;
}

Resolution perMetre(std::int64_t horizontal, std::int64_t vertical) {
    return {perInch(horizontal), perInch(vertical)};
}

// A chunk of a PNG file: length, type, data, checksum of type and data (ISO/IEC 15948, 5.3).
constexpr std::size_t kPngSignatureLength = 8;
constexpr std::size_t kChunkTypeLength = 4;
constexpr std::size_t kChunkFrame = 12;
constexpr std::size_t kHeaderDataLength = 13;
constexpr std::size_t kPhysicalDataLength = 9;
constexpr std::uint32_t kMaxPngNumber = 0x7FFFFFFF;

struct Chunk {
    std::string_view type;
    std::string_view data;
};

/// Removes a chunk from the front and returns it; none when it is incomplete or its checksum is wrong.
std::optional<Chunk> takeChunk(std::string_view& rest) {
    if (rest.size() < kChunkFrame) return std::nullopt;
    const auto length = bigEndianAt<std::uint32_t>(rest, 0);
    if (length > rest.size() - kChunkFrame) return std::nullopt;
    const std::string_view checked = rest.substr(4, kChunkTypeLength + length);
    if (bigEndianAt<std::uint32_t>(rest, 4 + checked.size()) != crc32(checked)) return std::nullopt;
    rest.remove_prefix(kChunkFrame + length);
    return Chunk{checked.substr(0, kChunkTypeLength), checked.substr(kChunkTypeLength)};
}

bool startsPixels(std::string_view chunk) {
    return chunk.size() >= kChunkFrame && chunk.substr(4, kChunkTypeLength) == "IDAT";
}

bool isPngSize(std::uint32_t number) {
    return number > 0 && number <= kMaxPngNumber;
}

// Tags of the first directory (Exif 2.3, 4.6.4; TIFF 6.0, section 8).
constexpr std::uint16_t kOrientation = 0x0112;
constexpr std::uint16_t kHorizontalResolution = 0x011A;
constexpr std::uint16_t kVerticalResolution = 0x011B;
constexpr std::uint16_t kResolutionUnit = 0x0128;

constexpr std::uint16_t kShortType = 3;
constexpr std::uint16_t kRationalType = 5;
constexpr int kLastOrientation = 8;
constexpr std::int64_t kUnitInch = 2;
constexpr std::int64_t kUnitCentimetre = 3;

/// The first directory of a TIFF structure: its short and rational numbers by tag.
class TiffDirectory {
  public:
    explicit TiffDirectory(std::string_view tiff) : tiff_(tiff), little_(tiff.starts_with("II")) {
        if (!little_ && !tiff.starts_with("MM")) return;
        const std::size_t start = number<std::uint32_t>(4).value_or(0);
        const std::size_t count = number<std::uint16_t>(start).value_or(0);
        constexpr std::size_t kEntryLength = 12;
        for (std::size_t i = 0; i < count; ++i)
            readEntry(start + 2 + i * kEntryLength);
    }

    /// Returns the number in hundredths; 0 when the tag is missing.
    [[nodiscard]] std::int64_t hundredths(std::uint16_t tag) const {
        const auto found = hundredths_.find(tag);
        return found == hundredths_.end() ? 0 : found->second;
    }

  private:
    template <typename Number>
    [[nodiscard]] std::optional<Number> number(std::size_t offset) const {
        if (offset > tiff_.size() || tiff_.size() - offset < sizeof(Number)) return std::nullopt;
        return little_ ? littleEndianAt<Number>(tiff_, offset) : bigEndianAt<Number>(tiff_, offset);
    }

    void readEntry(std::size_t entry) {
        const auto tag = number<std::uint16_t>(entry);
        const auto type = number<std::uint16_t>(entry + 2);
        if (!tag || !type) return;
        if (*type == kShortType) {
            hundredths_[*tag] = std::int64_t{100} * number<std::uint16_t>(entry + 8).value_or(0);
        }
        if (*type == kRationalType)
            hundredths_[*tag] = rationalAt(number<std::uint32_t>(entry + 8).value_or(0));
    }

    [[nodiscard]] std::int64_t rationalAt(std::size_t offset) const {
        const std::int64_t numerator = number<std::uint32_t>(offset).value_or(0);
        const std::int64_t denominator = number<std::uint32_t>(offset + 4).value_or(0);
        return denominator == 0 ? 0 : numerator * 100 / denominator;
    }

    std::string_view tiff_;
    bool little_;
    std::map<std::uint16_t, std::int64_t> hundredths_;
};

/// Reads resolution and orientation of an Exif block (the TIFF structure after "Exif" and two zero bytes)
/// into the header; damaged values are ignored. A resolution that is already known is kept.
void readExif(std::string_view tiff, PictureHeader& header) {
    const TiffDirectory directory(tiff);
    const std::int64_t orientation = directory.hundredths(kOrientation) / 100;
    if (orientation >= 1 && orientation <= kLastOrientation)
        header.orientation = static_cast<int>(orientation);
    if (header.resolution) return;
    const std::int64_t unit = directory.hundredths(kResolutionUnit) / 100;
    if (unit != kUnitInch && unit != kUnitCentimetre) return;
    const auto dotsPerInch = [&](std::uint16_t tag) {
        const std::int64_t hundredths = directory.hundredths(tag);
        const std::int64_t inInches = unit == kUnitCentimetre ? hundredths * 254 / 100 : hundredths;
        return (inInches + 50) / 100;
    };
    header.resolution = {dotsPerInch(kHorizontalResolution), dotsPerInch(kVerticalResolution)};
}

constexpr unsigned char kMarkerStart = 0xFF;
constexpr unsigned char kStartOfScan = 0xDA;
constexpr unsigned char kEndOfImage = 0xD9;
constexpr unsigned char kApplication0 = 0xE0;
constexpr unsigned char kApplication1 = 0xE1;

struct Segment {
    unsigned char marker = 0;
    std::string_view data;
};

/// Returns true if a marker has no length and no data: TEM and the restarts (T.81, B.1.1.3).
bool hasNoLength(unsigned char marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

/// Returns true if a marker starts a frame of any coding process: C0 to CF without DHT, JPG and DAC (T.81,
/// table B.1).
bool startsFrame(unsigned char marker) {
    const bool other = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && !other;
}

/// Removes a marker segment from the front and returns it; none when it is incomplete or has no marker.
std::optional<Segment> takeSegment(std::string_view& rest) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
    if (rest.empty() || byteAt(0) != kMarkerStart) return std::nullopt;
    // Any number of fill bytes may come before a marker (T.81, B.1.1.2).
    while (!rest.empty() && byteAt(0) == kMarkerStart)
        rest.remove_prefix(1);
    if (rest.empty()) return std::nullopt;
    Segment segment{.marker = byteAt(0), .data = {}};
    rest.remove_prefix(1);
    if (hasNoLength(segment.marker)) return segment;
    if (rest.size() < 2) return std::nullopt;
    const auto length = bigEndianAt<std::uint16_t>(rest, 0);
    if (length < 2 || length > rest.size()) return std::nullopt;
    segment.data = rest.substr(2, length - 2U);
    rest.remove_prefix(length);
    return segment;
}

/// Reads the density of a JFIF block, unless its numbers state only the shape of a pixel (JFIF 1.02, unit 0).
void readJfif(std::string_view data, PictureHeader& header) {
    if (data.size() < 12) return;
    const auto horizontal = std::int64_t{bigEndianAt<std::uint16_t>(data, 8)};
    const auto vertical = std::int64_t{bigEndianAt<std::uint16_t>(data, 10)};
    const auto toInches = [](std::int64_t perCentimetre) { return (perCentimetre * 254 + 50) / 100; };
    if (data[7] == 1) header.resolution = {horizontal, vertical};
    if (data[7] == 2) header.resolution = {toInches(horizontal), toInches(vertical)};
}

/// Reads the height and the width of a frame (T.81, B.2.2).
bool readFrame(std::string_view data, PictureHeader& header) {
    if (data.size() < 6) return false;
    header.height = bigEndianAt<std::uint16_t>(data, 1);
    header.width = bigEndianAt<std::uint16_t>(data, 3);
    return header.height > 0 && header.width > 0;
}

// Each of these reads a file that starts with its format's signature and returns none for a damaged header.

/// ISO/IEC 15948.
std::optional<PictureHeader> readPngHeader(std::string_view bytes) {
    std::string_view rest = bytes.substr(kPngSignatureLength);
    const std::optional<Chunk> first = takeChunk(rest);
    if (!first || first->type != "IHDR" || first->data.size() != kHeaderDataLength) return std::nullopt;
    const auto width = bigEndianAt<std::uint32_t>(first->data, 0);
    const auto height = bigEndianAt<std::uint32_t>(first->data, 4);
    if (!isPngSize(width) || !isPngSize(height)) return std::nullopt;
    PictureHeader header{.width = width, .height = height};
    while (!startsPixels(rest)) {
        const std::optional<Chunk> chunk = takeChunk(rest);
        if (!chunk) return std::nullopt;
        const bool inMetres = chunk->type == "pHYs" && chunk->data.size() == kPhysicalDataLength &&
                              chunk->data[kPhysicalDataLength - 1] == 1;
        if (inMetres) {
            header.resolution = perMetre(bigEndianAt<std::uint32_t>(chunk->data, 0),
                                         bigEndianAt<std::uint32_t>(chunk->data, 4));
        }
    }
    return header;
}

/// GIF89a.
std::optional<PictureHeader> readGifHeader(std::string_view bytes) {
    constexpr std::size_t kScreenDescriptorEnd = 13;
    if (bytes.size() <= kScreenDescriptorEnd) return std::nullopt;
    const auto width = littleEndianAt<std::uint16_t>(bytes, 6);
    const auto height = littleEndianAt<std::uint16_t>(bytes, 8);
    if (width == 0 || height == 0) return std::nullopt;
    return PictureHeader{.width = width, .height = height};
}

/// BITMAPFILEHEADER and the header after it.
std::optional<PictureHeader> readBmpHeader(std::string_view bytes) {
    constexpr std::size_t kInfo = 14;
    constexpr std::uint32_t kCoreLength = 12;
    constexpr std::uint32_t kInfoLength = 40;
    constexpr std::uint32_t kMaxInfoLength = 124;
    if (bytes.size() < kInfo + kCoreLength) return std::nullopt;
    PictureHeader header;
    const auto length = littleEndianAt<std::uint32_t>(bytes, kInfo);
    if (length == kCoreLength) {
        header.width = littleEndianAt<std::uint16_t>(bytes, kInfo + 4);
        header.height = littleEndianAt<std::uint16_t>(bytes, kInfo + 6);
    } else {
        if (length < kInfoLength || length > kMaxInfoLength || bytes.size() < kInfo + length)
            return std::nullopt;
        const auto signedAt = [&](std::size_t offset) {
            return std::int64_t{
                static_cast<std::int32_t>(littleEndianAt<std::uint32_t>(bytes, kInfo + offset))};
        };
        header.width = signedAt(4);
        // Negative in files whose rows run from top to bottom.
        header.height = signedAt(8) < 0 ? -signedAt(8) : signedAt(8);
        header.resolution = perMetre(signedAt(24), signedAt(28));
    }
    if (header.width <= 0 || header.height <= 0) return std::nullopt;
    return header;
}

/// ITU-T T.81, JFIF 1.02, Exif 2.3.
std::optional<PictureHeader> readJpegHeader(std::string_view bytes) {
    constexpr auto kJfif = "JFIF\0"sv;
    constexpr auto kExif = "Exif\0\0"sv;
    PictureHeader header;
    std::string_view rest = bytes.substr(2);
    for (;;) {
        const std::optional<Segment> segment = takeSegment(rest);
        if (!segment || segment->marker == kStartOfScan || segment->marker == kEndOfImage)
            return std::nullopt;
        if (startsFrame(segment->marker)) {
            if (!readFrame(segment->data, header)) return std::nullopt;
            return header;
        }
        if (segment->marker == kApplication0 && segment->data.starts_with(kJfif))
            readJfif(segment->data, header);
        if (segment->marker == kApplication1 && segment->data.starts_with(kExif)) {
            readExif(segment->data.substr(kExif.size()), header);
        }
    }
}

constexpr Resolution kDefaultResolution{96, 96};
// Some programs write 0 or 1 for "unknown".
constexpr std::int64_t kMinResolution = 2;
constexpr std::int64_t kMaxResolution = 32767;

struct Format {
    std::string_view signature;
    std::optional<PictureHeader> (*read)(std::string_view);
    const char* name;
    const char* contentType;
    const char* extension;
};

constexpr Format kFormats[] = {
    {"\x89PNG\r\n\x1A\n", readPngHeader, "PNG", "image/png", "png"},
    {"\xFF\xD8\xFF", readJpegHeader, "JPEG", "image/jpeg", "jpeg"},
    {"GIF87a", readGifHeader, "GIF", "image/gif", "gif"},
    {"GIF89a", readGifHeader, "GIF", "image/gif", "gif"},
    {"BM", readBmpHeader, "BMP", "image/bmp", "bmp"},
};

bool isSensible(std::int64_t resolution) {
    return resolution >= kMinResolution && resolution <= kMaxResolution;
}

Emu lengthOf(std::int64_t pixels, std::int64_t resolution) {
    return {std::max<std::int64_t>(1, (pixels * kEmuPerInch + resolution / 2) / resolution)};
}

}  // namespace

PictureFile PictureFile::read(std::string_view bytes, const std::string& fileName) {
    for (const Format& format : kFormats) {
        if (!bytes.starts_with(format.signature)) continue;
        const std::optional<PictureHeader> header = format.read(bytes);
        if (!header) raiseUnreadable(fileName, std::string("it is a damaged ") + format.name + " picture");
        return {*header, format.contentType, format.extension};
    }
    raiseUnreadable(fileName, bytes.empty() ? "it is empty" : "it is no PNG, JPEG, GIF or BMP picture");
}

Resolution PictureFile::resolution() const {
    const Resolution stated = header_.resolution.value_or(kDefaultResolution);
    return isSensible(stated.horizontal) && isSensible(stated.vertical) ? stated : kDefaultResolution;
}

Emu PictureFile::naturalWidth() const {
    return lengthOf(header_.width, resolution().horizontal);
}

Emu PictureFile::naturalHeight() const {
    return lengthOf(header_.height, resolution().vertical);
}

}  // namespace mergeloom::opc
