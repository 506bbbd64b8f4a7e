#pragma once

#include <string>
#include <string_view>

/// The types of relationships. Each one of Office Open XML exists twice: in transitional documents (ECMA-376
/// Part 4) and in strict ones (ECMA-376 Part 1).
namespace mergeloom::opc {

enum class Conformance { Transitional, Strict };

/// The type with a short name such as "officeDocument" or "image".
std::string officeRelationshipType(std::string_view shortName, Conformance conformance);

/// The short name of a type in either form; empty for types that are not of Office Open XML.
std::string_view officeShortName(std::string_view type);

inline constexpr std::string_view kSignatureOriginType =
    "http://schemas.openxmlformats.org/package/2006/relationships/digital-signature/origin";

}  // namespace mergeloom::opc
