#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/opc/Package.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::graft {

enum class PartFate { Added, Removed, Changed };

/// A part in which two exports differ.
struct PartDifference {
    std::string partName;
    PartFate fate = PartFate::Changed;
};

/// The rules for the parts of one kind of document.
struct PartRules {
    CanonicalRules xml;
    /// Parts that say nothing of their own: the office makes them anew of the document, or compares them
    /// where they are used. A name that ends in "*" is the beginning of names.
    std::span<const std::string_view> ignored;
};

/// Returns the parts in which two exports differ, volatile content left out, in the order of their names.
/// Raises kFileCouldNotBeRead for damaged parts.
std::vector<PartDifference> differencesOf(opc::Package& baseline, opc::Package& edited,
                                          const PartRules& rules);

/// Returns texts for the targets of a part's relationships: an external address, or a digest of a part's
/// content, whatever its name. The package must outlive it.
TargetText targetsOf(opc::Package& package, const std::string& partName);

}  // namespace mergeloom::graft
