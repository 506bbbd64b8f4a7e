#include "app/TemplateCheck.h"

#include "app/ListFormatting.h"
#include "base/Text.h"
#include "droppers/FurtherPlaceNames.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace mergeloom {

namespace {

using letters::ControlPath;

std::string quoted(const std::string& name) {
    return "\"" + name + "\"";
}

std::string nameOf(const ControlPath& path) {
    std::string name;
    for (const std::string& part : path)
        name += (name.empty() ? "" : ".") + part;
    return name;
}

/// Returns the number of single bytes that differ between two texts (Levenshtein).
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t column = 0; column <= b.size(); ++column)
        row[column] = column;
    for (std::size_t line = 1; line <= a.size(); ++line) {
        std::size_t diagonal = row[0];
        row[0] = line;
        for (std::size_t column = 1; column <= b.size(); ++column) {
            const std::size_t changed = diagonal + (a[line - 1] == b[column - 1] ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({changed, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

/// Returns the name that differs least; empty if more than half of it differs. A name for a bound value is
/// only compared with others.
std::string nearestOf(const std::string& name, const std::vector<std::string>& names) {
    std::string nearest;
    std::size_t least = std::max<std::size_t>(1, name.size() / 2) + 1;
    const bool isBound = name.find(kBoundValueSuffix) != std::string::npos;
    for (const std::string& candidate : names) {
        if (candidate.ends_with(kBoundValueSuffix) != isBound) continue;
        const std::size_t difference = distance(foldCase(name), foldCase(candidate));
        if (difference >= least) continue;
        least = difference;
        nearest = candidate;
    }
    return nearest;
}

class TemplateChecker {
  public:
    TemplateChecker(const MappingSource& source, const DatabaseObject& object,
                    const std::vector<TemplatePlace>& places, PlaceScheme scheme)
        : title_(object.title()),
          places_(places),
          controls_(valuePaths(source.xmlNodes(), *object.node)),
          possible_(possiblePlaceNames(source.xmlNodes(), *object.node, scheme)) {
        std::vector<std::string> names;
        names.reserve(places.size());
        for (const TemplatePlace& place : places)
            names.push_back(place.name);
        const auto noPicture = [](const std::string&) { return std::string(); };
        sources_ = placeSources(source.xmlNodes(), *object.node, names, noPicture, scheme);
    }

    std::vector<Finding> check() {
        for (const TemplatePlace& place : places_)
            checkPlace(place);
        checkControls();
        checkSubforms();
        for (const std::string& name : sources_.ambiguous)
            add(Finding::Kind::SharedName, name, {},
                "Several controls of " + title_ + " make the name " + quoted(name) +
                    "; the first of them fills its place.");
        return std::move(findings_);
    }

  private:
    void checkPlace(const TemplatePlace& place) {
        using Kind = TemplatePlace::Kind;
        const bool isTable = sources_.tables.contains(foldCase(place.name));
        if (place.kind == Kind::Optional) return checkOptional(place);
        if (place.kind == Kind::Table && !isTable) return addUnknownTable(place);
        if (place.kind == Kind::Place && !isField(place.name) && !isTable) addUnknownPlace(place);
    }

    [[nodiscard]] bool isField(const std::string& name) const {
        return sources_.places.contains(foldCase(name));
    }

    void addUnknownTable(const TemplatePlace& place) {
        // A place over several cells fills the first one.
        if (isField(place.name)) return;
        addUnknown(Finding::Kind::Table, place.name, possible_.tables,
                   "The table " + quoted(place.name) + " lists the records of nothing in " + title_);
    }

    void addUnknownPlace(const TemplatePlace& place) {
        addUnknown(Finding::Kind::Place, place.name, possible_.places,
                   "The place " + quoted(place.name) + " is made by no control of " + title_);
    }

    void addUnknown(Finding::Kind kind, const std::string& name, const std::vector<std::string>& names,
                    const std::string& start) {
        const std::string nearest = nearestOf(name, names);
        const std::string end = nearest.empty() ? "." : "; the nearest name is " + quoted(nearest) + ".";
        add(kind, name, nearest, start + end);
    }

    void checkOptional(const TemplatePlace& place) {
        const bool hasField =
            std::ranges::any_of(place.beside, [this](const std::string& name) { return isField(name); });
        if (hasField) return;
        add(Finding::Kind::Optional, place.name, {},
            "The optional place " + quoted(place.name) + " is beside no field, so it always stays.");
    }

    void checkControls() {
        std::set<ControlPath> placed;
        for (const auto& [name, source] : sources_.places)
            placed.insert(source.path);
        for (const ControlPath& path : controls_) {
            // Controls of one name take the same place.
            if (!placed.insert(path).second) continue;
            add(Finding::Kind::Control, nameOf(path), {},
                "The control " + quoted(nameOf(path)) + " of " + title_ + " has no place.");
        }
    }

    /// Finds subforms whose fields are in the template without the table that repeats them.
    void checkSubforms() {
        for (const ControlPath& path : possible_.listed) {
            const bool isListed =
                std::ranges::any_of(sources_.tables, [&](const auto& table) { return table.second == path; });
            if (isListed || !hasPlaceBelow(path)) continue;
            add(Finding::Kind::Table, nameOf(path), {},
                "The fields of " + quoted(nameOf(path)) +
                    " have places, but no table lists its records; only the first one is filled.");
        }
    }

    [[nodiscard]] bool hasPlaceBelow(const ControlPath& path) const {
        return std::ranges::any_of(sources_.places, [&](const auto& place) {
            const ControlPath& source = place.second.path;
            return source.size() == path.size() + 1 && std::equal(path.begin(), path.end(), source.begin());
        });
    }

    void add(Finding::Kind kind, const std::string& name, const std::string& nearest,
             const std::string& sentence) {
        findings_.push_back({kind, name, nearest, sentence});
    }

    std::string title_;
    const std::vector<TemplatePlace>& places_;
    std::vector<ControlPath> controls_;
    PossiblePlaceNames possible_;
    letters::PlaceSources sources_;
    std::vector<Finding> findings_;
};

std::string_view kindName(Finding::Kind kind) {
    switch (kind) {
        case Finding::Kind::Place:
            return "place";
        case Finding::Kind::Table:
            return "table";
        case Finding::Kind::Control:
            return "control";
        case Finding::Kind::Optional:
            return "optional";
        default:
            return "shared name";
    }
}

void writeJson(std::ostream& stream, const std::vector<Finding>& findings) {
    stream << "[";
    const char* separator = "\n  ";
    for (const Finding& finding : findings) {
        stream << separator << "{\"kind\": ";
        writeJsonText(stream, kindName(finding.kind));
        stream << ", \"name\": ";
        writeJsonText(stream, finding.name);
        stream << ", \"nearest\": ";
        finding.nearest.empty() ? void(stream << "null") : writeJsonText(stream, finding.nearest);
        stream << ", \"sentence\": ";
        writeJsonText(stream, finding.sentence);
        stream << "}";
        separator = ",\n  ";
    }
    stream << (findings.empty() ? "]\n" : "\n]\n");
}

}  // namespace

std::vector<Finding> checkTemplate(const MappingSource& source, const DatabaseObject& object,
                                   const std::vector<TemplatePlace>& places, PlaceScheme scheme) {
    return TemplateChecker(source, object, places, scheme).check();
}

void writeFindings(std::ostream& stream, const std::vector<Finding>& findings, const DatabaseObject& object,
                   ListFormat format) {
    if (format == ListFormat::Json) return writeJson(stream, findings);
    for (const Finding& finding : findings)
        stream << finding.sentence << "\n";
    if (findings.empty()) stream << "The template and " << object.title() << " fit.\n";
}

}  // namespace mergeloom
