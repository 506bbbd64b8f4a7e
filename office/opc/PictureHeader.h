#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace mergeloom::opc {

enum class PictureFormat : std::uint8_t { Png, Jpeg, Gif, Bmp };

/// Dots per inch, rounded to whole ones, as people mean them: a file that counts dots per metre cannot say 96
/// dots per inch, only 3780 per metre.
struct Resolution {
    std::int64_t horizontal = 0;
    std::int64_t vertical = 0;
};

/// What the header of a picture file says.
struct PictureHeader {
    PictureFormat format = PictureFormat::Png;
    std::int64_t width = 0;  ///< in pixels as they are stored, before any turning
    std::int64_t height = 0;
    std::optional<Resolution> resolution = {};  ///< nothing when the file does not say
    int orientation = 1;                        ///< Exif 2.3, 4.6.4 A: 1 as stored, 2 to 8 turned or mirrored
};

/// Each reads a file that starts with its format's signature; nothing when the header is damaged.
std::optional<PictureHeader> readPngHeader(std::string_view bytes);   // ISO/IEC 15948
std::optional<PictureHeader> readGifHeader(std::string_view bytes);   // GIF89a
std::optional<PictureHeader> readBmpHeader(std::string_view bytes);   // BITMAPFILEHEADER and what follows
std::optional<PictureHeader> readJpegHeader(std::string_view bytes);  // ITU-T T.81, JFIF 1.02, Exif 2.3

}  // namespace mergeloom::opc
