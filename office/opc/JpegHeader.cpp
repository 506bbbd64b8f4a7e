#include "office/opc/ByteOrder.h"
#include "office/opc/PictureHeader.h"

using namespace std::string_view_literals;

namespace mergeloom::opc {

namespace {

constexpr unsigned char kMarkerStart = 0xFF;
constexpr unsigned char kStartOfScan = 0xDA;
constexpr unsigned char kEndOfImage = 0xD9;
constexpr unsigned char kApplication0 = 0xE0;
constexpr unsigned char kApplication1 = 0xE1;

struct Segment {
    unsigned char marker = 0;
    std::string_view data;
};

/// Markers that stand alone: TEM and the restarts (T.81, B.1.1.3).
bool hasNoLength(unsigned char marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

/// Start of frame, of any coding process: C0 to CF without DHT, JPG and DAC (T.81, table B.1).
bool startsFrame(unsigned char marker) {
    const bool other = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= 0xC0 && marker <= 0xCF && !other;
}

/// Takes a marker segment off the front; nothing when it is cut off or no marker stands there.
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

/// The density of a JFIF block, unless its numbers tell nothing but the shape of a pixel (JFIF 1.02, unit 0).
void readJfif(std::string_view data, PictureHeader& header) {
    if (data.size() < 12) return;
    const auto horizontal = std::int64_t{bigEndianAt<std::uint16_t>(data, 8)};
    const auto vertical = std::int64_t{bigEndianAt<std::uint16_t>(data, 10)};
    const auto toInches = [](std::int64_t perCentimetre) { return (perCentimetre * 254 + 50) / 100; };
    if (data[7] == 1) header.resolution = {horizontal, vertical};
    if (data[7] == 2) header.resolution = {toInches(horizontal), toInches(vertical)};
}

/// Height and width of a frame (T.81, B.2.2).
bool readFrame(std::string_view data, PictureHeader& header) {
    if (data.size() < 6) return false;
    header.height = bigEndianAt<std::uint16_t>(data, 1);
    header.width = bigEndianAt<std::uint16_t>(data, 3);
    return header.height > 0 && header.width > 0;
}

}  // namespace

std::optional<PictureHeader> readJpegHeader(std::string_view bytes) {
    constexpr auto kJfif = "JFIF\0"sv;
    constexpr auto kExif = "Exif\0\0"sv;
    PictureHeader header{.format = PictureFormat::Jpeg};
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

}  // namespace mergeloom::opc
