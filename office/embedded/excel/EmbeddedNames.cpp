#include "office/embedded/excel/EmbeddedNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/excel/EmbeddedDefinedName.h"
#include "office/embedded/excel/NameFormula.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

/// The sheet's index in the workbook's list, of whatever kind it is.
std::optional<int> sheetNamed(const WorkbookPart& workbook, const std::string& name) {
    const auto& sheets = workbook.sheets();
    const auto found = std::ranges::find_if(
        sheets, [&](const SheetEntry& entry) { return equalsIgnoringCase(entry.name, name); });
    if (found == sheets.end()) return {};
    return static_cast<int>(found - sheets.begin());
}

}  // namespace

excel::DefinedNamePtr EmbeddedNames::Item(int number) {
    return std::make_shared<EmbeddedDefinedName>(content_, indexOf(number));
}

excel::DefinedNamePtr EmbeddedNames::Item(const std::string& name) {
    const std::optional<std::size_t> index = find(name);
    if (!index) throw AutomationError(kApplicationDefined, "There is no name '" + name + "'.");
    return std::make_shared<EmbeddedDefinedName>(content_, *index);
}

/// A table's name is taken, although it is none of the names that can be got.
bool EmbeddedNames::Exists(const std::string& name) {
    return find(name) || content_->tableNames().has(name);
}

std::int64_t EmbeddedNames::firstFreeCounter(const std::string& stem) {
    std::int64_t counter = names().firstFreeCounter(stem);
    while (Exists(stem + std::to_string(counter)))
        ++counter;
    return counter;
}

excel::DefinedNamePtr EmbeddedNames::Add(const std::string& name, const std::string& refersToLocal) {
    if (content_->tableNames().has(name)) {
        throw AutomationError(kApplicationDefined, "The name '" + name + "' is that of a table.");
    }
    const std::string formula = nameFormula(*content_, refersToLocal);
    const std::size_t index = names().define(name, formula);
    content_->touch();
    return std::make_shared<EmbeddedDefinedName>(content_, index);
}

std::optional<std::size_t> EmbeddedNames::find(const std::string& name) const {
    const std::size_t mark = name.rfind('!');
    if (mark == std::string::npos) return names().find(name);
    const std::optional<int> sheet = sheetNamed(content_->workbook(), name.substr(0, mark));
    if (!sheet) return {};
    return names().find(name.substr(mark + 1), *sheet);
}

}  // namespace mergeloom::embedded
