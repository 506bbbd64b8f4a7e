#include "office/embedded/sheet/TableNames.h"

#include "base/Text.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kTableType = ".spreadsheetml.table+xml";

std::set<std::string> readNames(const opc::Package& package) {
    std::set<std::string> names;
    for (const std::string& partName : package.partNames()) {
        if (!package.contentTypes().of(partName).ends_with(kTableType)) continue;
        const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
        names.insert(foldCase(part->root().attribute("displayName").value()));
    }
    return names;
}

}  // namespace

bool TableNames::has(const std::string& name) {
    if (!names_) names_ = readNames(package_);
    return names_->contains(foldCase(name));
}

}  // namespace mergeloom::embedded
