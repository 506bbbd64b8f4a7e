#pragma once

#include <string>

namespace mergeloom {

/// Returns the start of a JPEG file of 20 by 10 pixels with an orientation (Exif 2.3, 4.6.4 A).
inline std::string turnedPicture(int orientation) {
    using std::string_literals::operator""s;
    const std::string tag = "\x01\x12\0\x03\0\0\0\x01\0"s + static_cast<char>(orientation) + "\0\0"s;
    const std::string exif = "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01"s + tag + "\0\0\0\0"s;
    return "\xFF\xD8\xFF\xE1\0"s + static_cast<char>(exif.size() + 2) + exif +
           "\xFF\xC0\0\x0B\x08\0\x0A\0\x14\x01\x01\x11\0\xFF\xD9"s;
}

}  // namespace mergeloom
