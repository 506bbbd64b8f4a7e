#include "droppers/PlaceDirectory.h"

#include "base/Text.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "droppers/modExcelNormalizeName.h"
#include "droppers/modWordNormalizeName.h"
#include "xml/modMSXMLHelper.h"
#include "xml/modNamedItems.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <set>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mergeloom {

namespace {

using letters::ControlPath;
using letters::PlaceSource;
using letters::PlaceSources;
using letters::ValueKind;

/// Adds the counter at the end of a name. Only these numbers are taken from the document; the names are
/// computed from the controls.
void collectCounter(std::string_view name, std::set<std::int64_t>& counters) {
    const std::string_view digits = placeCounterOf(name);
    std::int64_t counter = 0;
    (void)std::from_chars(digits.data(), digits.data() + digits.size(), counter);
    if (!digits.empty()) counters.insert(counter);
}

std::string nameOf(const XmlNode& element) {
    return GetAttributeValue(element, Attribute::Name);
}

ControlPath below(const ControlPath& path, const std::string& name) {
    ControlPath longer = path;
    longer.push_back(name);
    return longer;
}

/// Calls the visitor for each control of an object except subforms, and the subform visitor for each subform
/// before its controls.
class ControlWalk {
  public:
    using Visitor =
        std::function<void(const TreeNode& control, const std::string& prefix, const ControlPath&)>;

    ControlWalk(const XmlNodeCollection& xmlNodes, Visitor onControl, Visitor onSubform)
        : xmlNodes_(xmlNodes), onControl_(std::move(onControl)), onSubform_(std::move(onSubform)) {}

    void walk(const TreeNode& parent, const std::string& parentName, const ControlPath& path) const {
        const std::string prefix = placePrefix(xmlNodes_, parent, parentName);
        for (const TreeNode* control : allControls(parent)) {
            const XmlNode element = elementOf(xmlNodes_, control);
            // A control without a form below it has the kinds of a drop there.
            if (!element) continue;
            const std::string name = nameOf(element);
            if (!isSubform(element)) {
                onControl_(*control, prefix, below(path, name));
                continue;
            }
            onSubform_(*control, prefix, below(path, name));
            walk(*control, name, below(path, name));
        }
    }

  private:
    const XmlNodeCollection& xmlNodes_;
    Visitor onControl_;
    Visitor onSubform_;
};

/// The rules by which the droppers make names.
struct NameRules {
    NameRule normalize;
    std::string (*nameOfTable)(const TreeNode& node, const std::string& name);
    std::string_view prefix;                                ///< of every place
    std::string (*nameOfControl)(const std::string& name);  ///< in the name of its place
};

const NameRules& rulesOf(PlaceScheme scheme) {
    static const NameRules kBookmarks{WordNormalizeName, tableBookmarkName, "",
                                      [](const std::string& name) { return SimplifyName(name); }};
    static const NameRules kRangeNames{
        ExcelNormalizeName, tableRangeName, kRangeNamePrefix,
        [](const std::string& name) { return ExcelNormalizeName(name, false); }};
    return scheme == PlaceScheme::RangeNames ? kRangeNames : kBookmarks;
}

/// Returns the node of a control's value of that kind; none without one.
const TreeNode* valueNode(const TreeNode& control, ValueKind kind) {
    for (const TreeNode* node = control.Child(); node != nullptr; node = node->Next()) {
        const DropKind drops = dropKindOf(node->Tag());
        const bool isDisplay = drops == DropKind::Value || drops == DropKind::Image;
        if (kind == ValueKind::Bound ? drops == DropKind::BoundValue : isDisplay) return node;
    }
    return nullptr;
}

/// Collects the sources of the bookmarks of a document, or of the names of a workbook.
class PlaceCollector {
  public:
    PlaceCollector(std::span<const std::string> names, NameRule normalize) : normalize_(normalize) {
        for (const std::string& name : names) {
            taken_.insert(foldCase(name));
            collectCounter(name, counters_);
        }
    }

    void addPlace(const std::string& name, const PlaceSource& source) { named_.emplace_back(name, source); }
    void addTable(const std::string& name, const ControlPath& path) { tables_.emplace_back(name, path); }

    PlaceSources collect() {
        listPlaces(0);
        listTables(0);
        // A control's own name has priority over a name with a counter of another control.
        for (const std::int64_t counter : counters_) {
            if (counter == 0) continue;
            listPlaces(counter);
            listTables(counter);
        }
        return std::move(sources_);
    }

  private:
    void listPlaces(std::int64_t counter) {
        for (const auto& [name, source] : named_) {
            const std::string usable = takenName(name, counter);
            if (usable.empty()) continue;
            const auto [found, isNew] = sources_.places.emplace(usable, source);
            const bool isAnother = !isNew && found->second != source;
            if (isAnother && counter == 0) sources_.ambiguous.push_back(usablePlaceName(name, 0, normalize_));
        }
    }
    void listTables(std::int64_t counter) {
        for (const auto& [name, path] : tables_) {
            const std::string usable = takenName(name, counter);
            if (!usable.empty()) sources_.tables.emplace(usable, path);
        }
    }
    /// Returns the folded name of the place with that counter, or an empty text if there is none.
    [[nodiscard]] std::string takenName(const std::string& name, std::int64_t counter) const {
        const std::string usable = foldCase(usablePlaceName(name, counter, normalize_));
        return taken_.contains(usable) ? usable : std::string();
    }

    NameRule normalize_;
    std::unordered_set<std::string> taken_;
    std::set<std::int64_t> counters_;
    std::vector<std::pair<std::string, PlaceSource>> named_;
    std::vector<std::pair<std::string, ControlPath>> tables_;
    PlaceSources sources_;
};

/// Calls the visitors for the names of all places and tables of an object, before they are made usable.
template <typename PlaceVisitor, typename TableVisitor>
void visitNames(const XmlNodeCollection& xmlNodes, const TreeNode& object, const NameRules& rules,
                PlaceVisitor onPlace, TableVisitor onTable) {
    const auto visitControl = [&](const TreeNode& control, const std::string& prefix,
                                  const ControlPath& path) {
        const std::string name = rules.nameOfControl(path.back());
        if (name.empty()) return;
        for (const ValueKind kind : {ValueKind::Display, ValueKind::Bound})
            onPlace(std::string(rules.prefix) + placeName(prefix, name, kind), control,
                    PlaceSource{path, kind});
    };
    const auto visitSubform = [&](const TreeNode& subform, const std::string&, const ControlPath& path) {
        onTable(rules.nameOfTable(subform, path.back()), subform, path);
    };
    const std::string objectName = nameOf(elementOf(xmlNodes, &object));
    onTable(rules.nameOfTable(object, objectName), object, ControlPath{});
    ControlWalk(xmlNodes, visitControl, visitSubform).walk(object, objectName, {});
}

}  // namespace

PlaceSources placeSources(const XmlNodeCollection& xmlNodes, const TreeNode& object,
                          std::span<const std::string> names,
                          const std::function<std::string(const std::string& image)>& findPicture,
                          PlaceScheme scheme) {
    const NameRules& rules = rulesOf(scheme);
    PlaceCollector collector{names, rules.normalize};
    const auto addPlace = [&](const std::string& name, const TreeNode& control, PlaceSource source) {
        const std::string image = GetAttributeValue(elementOf(xmlNodes, &control), Attribute::Image);
        source.image = image.empty() ? "" : findPicture(image);
        collector.addPlace(name, source);
    };
    const auto addTable = [&](const std::string& name, const TreeNode&, const ControlPath& path) {
        collector.addTable(name, path);
    };
    visitNames(xmlNodes, object, rules, addPlace, addTable);
    return collector.collect();
}

PossiblePlaceNames possiblePlaceNames(const XmlNodeCollection& xmlNodes, const TreeNode& object,
                                      PlaceScheme scheme) {
    const NameRules& rules = rulesOf(scheme);
    PossiblePlaceNames names;
    visitNames(
        xmlNodes, object, rules,
        [&](const std::string& name, const TreeNode&, const PlaceSource&) {
            names.places.push_back(usablePlaceName(name, 0, rules.normalize));
        },
        [&](const std::string& name, const TreeNode& node, const ControlPath& path) {
            names.tables.push_back(usablePlaceName(name, 0, rules.normalize));
            if (!path.empty() && isBoundSubform(elementOf(xmlNodes, &node))) names.listed.push_back(path);
        });
    return names;
}

void addNodesByPlace(const XmlNodeCollection& xmlNodes, const TreeNode& object, PlaceScheme scheme,
                     NodesByPlace& nodes) {
    const NameRules& rules = rulesOf(scheme);
    const auto add = [&](const std::string& name, const TreeNode& node) {
        const std::string usable = foldCase(usablePlaceName(name, 0, rules.normalize));
        if (!usable.empty()) nodes[usable].push_back(node.Index());
    };
    visitNames(
        xmlNodes, object, rules,
        [&](const std::string& name, const TreeNode& control, const PlaceSource& source) {
            add(name, control);
            if (const TreeNode* const value = valueNode(control, source.value)) add(name, *value);
        },
        [&](const std::string& name, const TreeNode& node, const ControlPath&) { add(name, node); });
}

std::span<const int> nodesOfPlace(const NodesByPlace& nodes, const std::string& name) {
    auto found = nodes.find(foldCase(name));
    if (found == nodes.end()) found = nodes.find(foldCase(withoutPlaceCounter(name)));
    if (found == nodes.end()) return {};
    return found->second;
}

std::vector<ControlPath> valuePaths(const XmlNodeCollection& xmlNodes, const TreeNode& object) {
    std::vector<ControlPath> paths;
    const auto add = [&](const TreeNode&, const std::string&, const ControlPath& path) {
        paths.push_back(path);
    };
    const auto ignore = [](const TreeNode&, const std::string&, const ControlPath&) {};
    ControlWalk(xmlNodes, add, ignore).walk(object, nameOf(elementOf(xmlNodes, &object)), {});
    return paths;
}

}  // namespace mergeloom
