#include "app/mGetResourceString.h"

#include "app/ResourceStrings.h"
#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Text.h"

namespace mergeloom {

namespace {

/// The length of a text in a buffer of 260 characters, without its closing zero.
constexpr std::size_t kMaxCharacters = 259;

}  // namespace

std::string GetResourceString(const std::string& vstrLibraryFile, std::int32_t vlngId) {
    if (vlngId < 0) return {};
    try {
        const std::string library = DiskFileStore().read(vstrLibraryFile);
        const std::u16string text = resourceString(library, static_cast<std::uint32_t>(vlngId));
        return fromUtf16(std::u16string_view(text).substr(0, kMaxCharacters));
    } catch (const AutomationError&) {
        // For the caller, a missing library and a missing string are the same.
        return {};
    }
}

}  // namespace mergeloom
