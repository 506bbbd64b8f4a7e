#include "office/opc/PictureFile.h"

#include "office/opc/UnreadableFile.h"

#include <algorithm>

namespace mergeloom::opc {

namespace {

constexpr Resolution kDefaultResolution{96, 96};
// Some programs write 0 or 1 for "unknown".
constexpr std::int64_t kLowestResolution = 2;
constexpr std::int64_t kHighestResolution = 32767;

struct Format {
    PictureFormat format;
    std::string_view signature;
    std::optional<PictureHeader> (*read)(std::string_view);
    const char* name;
    const char* contentType;
    const char* extension;
};

constexpr Format kFormats[] = {
    {PictureFormat::Png, "\x89PNG\r\n\x1A\n", readPngHeader, "PNG", "image/png", "png"},
    {PictureFormat::Jpeg, "\xFF\xD8\xFF", readJpegHeader, "JPEG", "image/jpeg", "jpeg"},
    {PictureFormat::Gif, "GIF87a", readGifHeader, "GIF", "image/gif", "gif"},
    {PictureFormat::Gif, "GIF89a", readGifHeader, "GIF", "image/gif", "gif"},
    {PictureFormat::Bmp, "BM", readBmpHeader, "BMP", "image/bmp", "bmp"},
};

const Format& formatOf(PictureFormat wanted) {
    return *std::find_if(std::begin(kFormats), std::end(kFormats),
                         [&](const Format& format) { return format.format == wanted; });
}

bool isSensible(std::int64_t resolution) {
    return resolution >= kLowestResolution && resolution <= kHighestResolution;
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
        return PictureFile(*header);
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

std::string PictureFile::contentType() const {
    return formatOf(header_.format).contentType;
}

std::string PictureFile::extension() const {
    return formatOf(header_.format).extension;
}

}  // namespace mergeloom::opc
