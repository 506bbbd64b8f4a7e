#include "office/opc/RelationshipTypes.h"

namespace mergeloom::opc {

namespace {

constexpr std::string_view kTransitional =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view kStrict = "http://purl.oclc.org/ooxml/officeDocument/relationships/";

}  // namespace

std::string officeRelationshipType(std::string_view shortName, Conformance conformance) {
    const std::string_view base = conformance == Conformance::Strict ? kStrict : kTransitional;
    return std::string(base).append(shortName);
}

std::string_view officeShortName(std::string_view type) {
    for (const std::string_view base : {kTransitional, kStrict}) {
        if (type.starts_with(base)) return type.substr(base.size());
    }
    return {};
}

}  // namespace mergeloom::opc
