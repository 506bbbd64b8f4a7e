#include "office/graft/WordGraft.h"

#include "office/graft/WordExport.h"
#include "office/graft/WordRules.h"

#include <algorithm>

namespace mergeloom::graft {

namespace {

std::string reasonOf(const PartDifference& part) {
    return "the part " + part.partName + " was changed";
}

}  // namespace

model::GraftResult graftDocument(const model::EditedPackage& package) {
    FormatNumbers formats;
    WordExport baseline(package.baseline, package.fileName, formats);
    WordExport edited(package.edited, package.fileName, formats);
    const std::vector<PartDifference> parts =
        differencesOf(baseline.package(), edited.package(), wordRules());
    if (!parts.empty()) return model::GraftRefusal{reasonOf(parts.front()), {}};
    if (std::ranges::equal(baseline.stories(), edited.stories(), areAlike)) return model::NothingChanged();
    return model::GraftRefusal{"there is no rule for the change", {}};
}

std::optional<model::GraftRefusal> findFaultInDocument(const model::EditedPackage&, const std::string&,
                                                       const std::string&) {
    return model::GraftRefusal{"the result was not compared", {}};
}

}  // namespace mergeloom::graft
