#pragma once

#include "office/formats/FormatTable.h"

#include <optional>
#include <string_view>

/// Short names of the values in the tables of formats, so that a row fits into a line.
namespace mergeloom::columns {

inline constexpr auto kDocument = OfficeDocumentType::Document;
inline constexpr auto kTemplate = OfficeDocumentType::Template;
inline constexpr auto kAddIn = OfficeDocumentType::AddIn;
inline constexpr auto kOffered = InDialogs::Offered;
inline constexpr auto kHidden = InDialogs::Hidden;
inline constexpr auto kNoVersion = SavedBy::NoVersion;
inline constexpr auto kEveryVersion = SavedBy::EveryVersion;
inline constexpr auto kBefore2007 = SavedBy::VersionsBefore2007;
inline constexpr auto kSince2002 = SavedBy::VersionsSince2002;
inline constexpr auto kSince2003 = SavedBy::VersionsSince2003;
inline constexpr auto kSince2007 = SavedBy::VersionsSince2007;
inline constexpr auto kExchange = SavedBy::VersionsThatExchange;

inline constexpr auto kMarked = Places::Kept;
inline constexpr auto kPlain = Places::Lost;
inline constexpr auto kNone = std::nullopt;
inline constexpr OfficeFilter kFoundOut{};

constexpr OfficeFilter filter(std::string_view name, std::string_view options = {}) {
    return {name, options};
}

}  // namespace mergeloom::columns
