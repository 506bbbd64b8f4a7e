#include "office/libreoffice/session/FileUrl.h"

#include <string_view>

namespace mergeloom::libreoffice {

namespace {

constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/-._~";

std::string escaped(char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return {'%', digits[value / 16], digits[value % 16]};
}

}  // namespace

std::string fileUrl(const std::string& path) {
    std::string url = "file://";
    for (const char byte : path)
        url += kPlain.find(byte) == std::string_view::npos ? escaped(byte) : std::string(1, byte);
    return url;
}

}  // namespace mergeloom::libreoffice
