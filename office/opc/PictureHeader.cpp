#include "office/opc/PictureHeader.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/Codec.h"

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
constexpr std::uint32_t kLargestPngNumber = 0x7FFFFFFF;

struct Chunk {
    std::string_view type;
    std::string_view data;
};

/// Takes a chunk off the front; nothing when it is cut off or its checksum is wrong.
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
    return number > 0 && number <= kLargestPngNumber;
}

}  // namespace

std::optional<PictureHeader> readPngHeader(std::string_view bytes) {
    std::string_view rest = bytes.substr(kPngSignatureLength);
    const std::optional<Chunk> first = takeChunk(rest);
    if (!first || first->type != "IHDR" || first->data.size() != kHeaderDataLength) return std::nullopt;
    const auto width = bigEndianAt<std::uint32_t>(first->data, 0);
    const auto height = bigEndianAt<std::uint32_t>(first->data, 4);
    if (!isPngSize(width) || !isPngSize(height)) return std::nullopt;
    PictureHeader header{.format = PictureFormat::Png, .width = width, .height = height};
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

std::optional<PictureHeader> readGifHeader(std::string_view bytes) {
    constexpr std::size_t kScreenDescriptorEnd = 13;
    if (bytes.size() <= kScreenDescriptorEnd) return std::nullopt;
    const auto width = littleEndianAt<std::uint16_t>(bytes, 6);
    const auto height = littleEndianAt<std::uint16_t>(bytes, 8);
    if (width == 0 || height == 0) return std::nullopt;
    return PictureHeader{.format = PictureFormat::Gif, .width = width, .height = height};
}

std::optional<PictureHeader> readBmpHeader(std::string_view bytes) {
    constexpr std::size_t kInfo = 14;
    constexpr std::uint32_t kCoreLength = 12;
    constexpr std::uint32_t kInfoLength = 40;
    constexpr std::uint32_t kLongestInfo = 124;
    if (bytes.size() < kInfo + kCoreLength) return std::nullopt;
    PictureHeader header{.format = PictureFormat::Bmp};
    const auto length = littleEndianAt<std::uint32_t>(bytes, kInfo);
    if (length == kCoreLength) {
        header.width = littleEndianAt<std::uint16_t>(bytes, kInfo + 4);
        header.height = littleEndianAt<std::uint16_t>(bytes, kInfo + 6);
    } else {
        if (length < kInfoLength || length > kLongestInfo || bytes.size() < kInfo + length)
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

}  // namespace mergeloom::opc
