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
    /// Parts that are not compared: the office generates them from the document, or they are compared where
    /// they are used. A name that ends in "*" matches all names with that beginning.
    std::span<const std::string_view> ignored;
};

/// Returns the parts in which two exports differ, sorted by name. Volatile content is ignored. Raises
/// kFileCouldNotBeRead for damaged parts.
std::vector<PartDifference> differencesOf(opc::Package& baseline, opc::Package& edited,
                                          const PartRules& rules);

/// Returns true if a part of a package is compared as XML, by its name.
bool isXml(const std::string& partName);

/// Returns a function that identifies the targets of a part's relationships: by the external address, or by a
/// digest of the target part's content. Names of parts are ignored. The package must outlive it.
TargetText targetsOf(opc::Package& package, const std::string& partName);

}  // namespace mergeloom::graft
