#include "office/formats/mOfficeVersion.h"

#include "base/Text.h"
#include "office/formats/mIsOffice2007SP2orLaterDummy.h"

#include <charconv>

namespace mergeloom {

namespace {

constexpr int kMaxVersion = 255;
constexpr int kOffice2002 = 10;
constexpr int kOffice2003 = 11;
constexpr int kOffice2007 = 12;
constexpr int kOffice2010 = 14;

bool writesExchangeFormats(int version) {
    return version >= kOffice2010 || (version == kOffice2007 && isOffice2007SP2orLater());
}

}  // namespace

int majorOfficeVersion(std::string_view version) {
    const std::string_view digits = trimBlanks(version);
    int number = kUnknownOfficeVersion;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isVersion = error == std::errc() && number >= 0 && number <= kMaxVersion;
    return isVersion ? number : kUnknownOfficeVersion;
}

bool canSave(SavedBy versions, int version) {
    if (version == kUnknownOfficeVersion) return true;
    switch (versions) {
        case SavedBy::EveryVersion:
            return true;
        case SavedBy::VersionsBefore2007:
            return version < kOffice2007;
        case SavedBy::VersionsSince2002:
            return version >= kOffice2002;
        case SavedBy::VersionsSince2003:
            return version >= kOffice2003;
        case SavedBy::VersionsSince2007:
            return version >= kOffice2007;
        case SavedBy::VersionsThatExchange:
            return writesExchangeFormats(version);
        default:
            return false;
    }
}

}  // namespace mergeloom
