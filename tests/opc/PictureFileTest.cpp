#include "base/AutomationError.h"
#include "office/opc/Codec.h"
#include "office/opc/PictureFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

using testing::HasSubstr;
using namespace std::string_literals;

std::string big(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = bytes; i-- > 0;)
        text += static_cast<char>((number >> (8 * i)) & 0xFF);
    return text;
}

std::string little(std::uint64_t number, int bytes) {
    std::string text = big(number, bytes);
    return {text.rbegin(), text.rend()};
}

std::string chunk(const std::string& type, const std::string& data) {
    return big(data.size(), 4) + type + data + big(crc32(type + data), 4);
}

std::string png(std::uint64_t width, std::uint64_t height, const std::string& chunks = {}) {
    return "\x89PNG\r\n\x1A\n" + chunk("IHDR", big(width, 4) + big(height, 4) + "\x08\x02\0\0\0"s) + chunks +
           chunk("IDAT", "pixels");
}

std::string pngAt(std::uint64_t perMetre, char unit = 1) {
    return png(192, 96, chunk("tEXt", "a") + chunk("pHYs", big(perMetre, 4) + big(perMetre, 4) + unit));
}

std::string segment(int marker, const std::string& data) {
    return "\xFF" + big(static_cast<std::uint64_t>(marker), 1) + big(data.size() + 2, 2) + data;
}

std::string jpeg(const std::string& segments) {
    return "\xFF\xD8" + segments + segment(0xDB, "table") + "\xFF\xFF" +
           segment(0xC2, "\x08" + big(96, 2) + big(192, 2) + "\x03") + segment(0xDA, "") + "pixels";
}

std::string jfif(char unit, std::uint64_t density) {
    return segment(0xE0, "JFIF\0\1\2"s + unit + big(density, 2) + big(density, 2) + "\0\0"s);
}

/// Returns the data of a resolution of 300.6 per unit and of an orientation.
std::string exif(bool isLittle, std::uint64_t unit, std::uint64_t orientation) {
    const auto number = isLittle ? little : big;
    const auto entry = [&](std::uint64_t tag, std::uint64_t type, const std::string& value) {
        return number(tag, 2) + number(type, 2) + number(1, 4) + value;
    };
    const std::string rational = number(3006, 4) + number(10, 4);
    return segment(0xE1, "Exif\0\0"s + (isLittle ? "II" : "MM") + number(42, 2) + number(8, 4) +
                             number(4, 2) + entry(0x112, 3, number(orientation, 2) + "\0\0"s) +
                             entry(0x11A, 5, number(62, 4)) + entry(0x11B, 5, number(62, 4)) +
                             entry(0x128, 3, number(unit, 2) + "\0\0"s) + number(0, 4) + rational);
}

std::string gif(std::uint64_t width) {
    return "GIF89a" + little(width, 2) + little(96, 2) + "\0\0\0,"s;
}

std::string bmp(std::uint64_t height, std::uint64_t perMetre) {
    return "BM" + std::string(12, '\0') + little(40, 4) + little(192, 4) + little(height, 4) +
           std::string(12, '\0') + little(perMetre, 4) + little(perMetre, 4) + std::string(8, '\0');
}

std::string oldBmp() {
    return "BM" + std::string(12, '\0') + little(12, 4) + little(192, 2) + little(96, 2) +
           std::string(4, '\0');
}

TEST(PictureFile, readsSizeAndResolution) {
    struct Case {
        std::string bytes;
        std::int64_t resolution;
        int orientation = 1;
        const char* contentType = "image/jpeg";
    };
    const std::vector<Case> cases = {
        {png(192, 96), 96, 1, "image/png"},
        {pngAt(3780), 96, 1, "image/png"},
        {pngAt(11811), 300, 1, "image/png"},
        {pngAt(11811, 0), 96, 1, "image/png"},
        {pngAt(0), 96, 1, "image/png"},
        {pngAt(0xFFFFFFFF), 96, 1, "image/png"},
        {gif(192), 96, 1, "image/gif"},
        {bmp(96, 2835), 72, 1, "image/bmp"},
        {bmp(static_cast<std::uint64_t>(-96), 0), 96, 1, "image/bmp"},
        {oldBmp(), 96, 1, "image/bmp"},
        {jpeg(""), 96},
        {jpeg(jfif(1, 300)), 300},
        {jpeg(jfif(2, 118)), 300},
        {jpeg(jfif(0, 300)), 96},
        {jpeg(jfif(1, 1)), 96},
        {jpeg(exif(true, 2, 6)), 301, 6},
        {jpeg(exif(false, 3, 8)), 764, 8},
        {jpeg(exif(true, 1, 9)), 96, 1},
        {jpeg(jfif(1, 72) + exif(true, 2, 3)), 72, 3},
        {jpeg(jfif(0, 1) + exif(true, 2, 3)), 301, 3},
    };
    for (const Case& one : cases) {
        const PictureFile picture = PictureFile::read(one.bytes, "logo");
        EXPECT_EQ(picture.orientation(), one.orientation);
        EXPECT_EQ(picture.contentType(), one.contentType);
        const double inches = 192.0 / static_cast<double>(one.resolution);
        EXPECT_NEAR(static_cast<double>(picture.naturalWidth().value), inches * 914400, 1);
        EXPECT_NEAR(static_cast<double>(picture.naturalHeight().value), inches * 457200, 1);
    }
}

TEST(PictureFile, refusesWithAReason) {
    std::string wrongSum = png(192, 96);
    wrongSum[18] = '\x01';
    const std::vector<std::pair<std::string, const char*>> cases = {
        {"", "it is empty"},
        {"<svg/>", "no PNG, JPEG, GIF or BMP picture"},
        {"\x89PNG\r\n\x1A\n", "damaged PNG"},
        {wrongSum, "damaged PNG"},
        {png(0, 96), "damaged PNG"},
        {png(0x80000000, 96), "damaged PNG"},
        {png(192, 96).substr(0, 40), "damaged PNG"},
        {gif(0), "damaged GIF"},
        {bmp(0, 0), "damaged BMP"},
        {bmp(96, 0).substr(0, 50), "damaged BMP"},
        {"\xFF\xD8\xFF", "damaged JPEG"},
        {"\xFF\xD8\xFF\xE0\0\1"s, "damaged JPEG"},
        {"\xFF\xD8" + segment(0xDA, ""), "damaged JPEG"},
        {"\xFF\xD8" + segment(0xC0, "\x08" + big(0, 2) + big(192, 2) + "\x03"), "damaged JPEG"},
    };
    for (const auto& [bytes, reason] : cases) {
        try {
            (void)PictureFile::read(bytes, "logo.png");
            ADD_FAILURE() << reason;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_THAT(error.description(), HasSubstr("The file \"logo.png\" could not be read: it is "));
            EXPECT_THAT(error.description(), HasSubstr(reason));
        }
    }
}

// Damaged headers are refused or read as something else, but never read beyond their end.
TEST(PictureFile, survivesDamage) {
    const auto tryToRead = [](const std::string& bytes) {
        try {
            const PictureFile picture = PictureFile::read(bytes, "f");
            EXPECT_GT(picture.naturalWidth().value, 0);
            EXPECT_GT(picture.naturalHeight().value, 0);
        } catch (const AutomationError&) {
        }
    };
    for (const std::string& good : {pngAt(3780), jpeg(jfif(0, 1) + exif(true, 2, 6)), gif(9), bmp(96, 1)}) {
        for (std::size_t i = 0; i < good.size(); ++i) {
            tryToRead(good.substr(0, i));
            for (const char flip : {'\x01', '\x80', '\xFF'}) {
                std::string bytes = good;
                bytes[i] = static_cast<char>(bytes[i] ^ flip);
                tryToRead(bytes);
            }
        }
    }
}

}  // namespace
}  // namespace mergeloom::opc
