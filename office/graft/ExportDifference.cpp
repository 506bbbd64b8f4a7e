#include "office/graft/ExportDifference.h"

#include "office/opc/PartName.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <set>

namespace mergeloom::graft {

namespace {

bool isIgnored(std::string_view name, const PartRules& rules) {
    return std::ranges::any_of(rules.ignored, [&](std::string_view pattern) {
        return pattern.ends_with('*') ? name.starts_with(pattern.substr(0, pattern.size() - 1))
                                      : name == pattern;
    });
}

std::string canonicalPart(opc::Package& package, const std::string& name, const PartRules& rules) {
    const auto part = opc::XmlPart::parse(package.readPart(name), name, package.fileName());
    return CanonicalXml(rules.xml, targetsOf(package, name)).of(part->root());
}

bool areEqual(opc::Package& baseline, opc::Package& edited, const std::string& name, const PartRules& rules) {
    const opc::PartDigest former = baseline.digestOfPart(name);
    const opc::PartDigest now = edited.digestOfPart(name);
    const bool isSame = !(former < now) && !(now < former);
    const bool hasTargets = edited.hasPart(opc::relationshipsPartOf(name));
    if (isSame && !hasTargets) return true;
    if (!isXml(name)) return isSame;
    return canonicalPart(baseline, name, rules) == canonicalPart(edited, name, rules);
}

}  // namespace

bool isXml(const std::string& partName) {
    const std::string_view extension = opc::extensionOf(partName);
    return extension == "xml" || extension == "vml";
}

std::vector<PartDifference> differencesOf(opc::Package& baseline, opc::Package& edited,
                                          const PartRules& rules) {
    std::vector<PartDifference> found;
    std::set<std::string> names;
    for (const opc::Package* package : {&baseline, &edited}) {
        for (const std::string& name : package->partNames())
            if (!isIgnored(name, rules)) names.insert(name);
    }
    for (const std::string& name : names) {
        if (!baseline.hasPart(name)) {
            found.push_back({name, PartFate::Added});
        } else if (!edited.hasPart(name)) {
            found.push_back({name, PartFate::Removed});
        } else if (!areEqual(baseline, edited, name, rules)) {
            found.push_back({name, PartFate::Changed});
        }
    }
    return found;
}

TargetText targetsOf(opc::Package& package, const std::string& partName) {
    return [&package, partName](std::string_view id) -> std::string {
        const opc::Relationships& relationships = package.relationshipsOf(partName);
        const opc::Relationship* const found = relationships.find(id);
        if (found == nullptr) return std::string(id);
        if (found->mode == opc::TargetMode::External) return found->target;
        std::string target = relationships.targetPart(*found);
        const std::string_view extension = opc::extensionOf(target);
        // XML parts are compared on their own; embedded packages differ in every export.
        const bool hasDigest =
            package.hasPart(target) && extension != "xml" && target.find("/embeddings/") == std::string::npos;
        if (!hasDigest) return target;
        const opc::PartDigest digest = package.digestOfPart(target);
        return std::to_string(digest.size) + ":" + std::to_string(digest.crc);
    };
}

}  // namespace mergeloom::graft
