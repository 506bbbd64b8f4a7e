#include "office/libreoffice/session/SocketFiles.h"

#include <rtl/digest.h>
#include <unistd.h>

#include <array>

namespace mergeloom::libreoffice {

namespace {

/// Returns the name that the office gives the pipe: the digest of the URL in UTF-16, without the zero of each
/// byte below 16. The URL is plain ASCII.
std::string nameOfProfile(const std::string& url) {
    std::string units;
    for (const char unit : url)
        units += {unit, '\0'};
    std::array<sal_uInt8, RTL_DIGEST_LENGTH_MD5> digest{};
    rtl_digest_MD5(units.data(), static_cast<sal_uInt32>(units.size()), digest.data(), digest.size());
    std::string name = "SingleOfficeIPC_";
    constexpr const char* digits = "0123456789abcdef";
    for (const sal_uInt8 byte : digest) {
        if (byte >= 16) name += digits[byte / 16];
        name += digits[byte % 16];
    }
    return name;
}

}  // namespace

std::vector<std::string> socketFiles(const std::string& pipeName, const std::string& profileUrl) {
    const std::string prefix = "/OSL_PIPE_" + std::to_string(::getuid()) + "_";
    const std::string names[] = {prefix + pipeName, prefix + nameOfProfile(profileUrl)};
    std::vector<std::string> files;
    // The office uses the second folder only when the first cannot be written.
    for (const std::string folder : {"/tmp", "/var/tmp"})
        for (const std::string& name : names)
            files.push_back(folder + name);
    return files;
}

}  // namespace mergeloom::libreoffice
