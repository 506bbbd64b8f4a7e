#pragma once

#include <cstdint>
#include <string_view>

namespace mergeloom {

/// The names of the switches, joined by ";". A switch's position in this list is its index in the argument
/// store.
inline constexpr std::string_view kSwitchNames =
    "xmlfile;template;usedocument;listing;full;label;fields;hidden;deletexmlfile;excel;directory";
/// The prefixes of a switch's name, joined by ";", in the order in which they are tried.
inline constexpr std::string_view kSwitchPrefixes = "-;/";

inline constexpr std::int32_t kXmlFileSwitch = 0;
inline constexpr std::int32_t kTemplateSwitch = 1;
inline constexpr std::int32_t kUseDocumentSwitch = 2;
inline constexpr std::int32_t kListingSwitch = 3;
inline constexpr std::int32_t kFullSwitch = 4;
inline constexpr std::int32_t kLabelSwitch = 5;
inline constexpr std::int32_t kFieldsSwitch = 6;
inline constexpr std::int32_t kHiddenSwitch = 7;
inline constexpr std::int32_t kDeleteXmlFileSwitch = 8;
inline constexpr std::int32_t kExcelSwitch = 9;
inline constexpr std::int32_t kDirectorySwitch = 10;

/// The value of a switch that is given without one.
inline constexpr std::string_view kEmptyValue = "{empty}";

}  // namespace mergeloom
