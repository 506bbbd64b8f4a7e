#include "office/model/excel/SheetReference.h"

#include "base/Text.h"
#include "office/model/excel/DefinedNameRule.h"

namespace mergeloom::excel {

namespace {

constexpr char32_t kLastAscii = 0x7F;

/// Returns true if a sheet's name may have the character without quotes. Programs quote differently, so this
/// accepts more than is written here.
bool isPlain(char32_t character) {
    return isNameLetter(character) || isDigit(character) || character == U'_' || character == U'.' ||
           character > kLastAscii;
}

bool isPlainName(std::string_view name) {
    if (name.empty()) return false;
    while (!name.empty()) {
        if (!isPlain(takeCodePoint(name))) return false;
    }
    return true;
}

/// Returns true when a sheet can have the name. A colon denotes several sheets, brackets another workbook.
bool isSheetName(std::string_view name) {
    return !name.empty() && name.find_first_of(":[]\\/?*") == std::string_view::npos;
}

/// Removes a name in quotes and the "!" after it from the start of a formula and returns it; none when the
/// formula does not begin so.
std::optional<std::string> takeQuotedName(std::string_view& formula) {
    std::string name;
    for (std::size_t at = 1; at + 1 < formula.size(); ++at) {
        const bool quote = formula[at] == '\'';
        if (quote && formula[at + 1] == '!') {
            formula.remove_prefix(at + 2);
            return isSheetName(name) ? std::optional(name) : std::nullopt;
        }
        if (quote && formula[++at] != '\'') return {};
        name += formula[at];
    }
    return {};
}

/// Takes a name without quotes and its "!" off a formula; the empty name where no sheet is named.
std::optional<std::string> takePlainName(std::string_view& formula) {
    const std::size_t mark = formula.find('!');
    if (mark == std::string_view::npos) return "";
    const std::string_view name = formula.substr(0, mark);
    if (!isPlainName(name)) return {};
    formula.remove_prefix(mark + 1);
    return std::string(name);
}

bool needsQuotes(const std::string& name) {
    return !isPlainName(name) || !isDefinedName(name);
}

}  // namespace

std::string writtenSheetName(const std::string& name) {
    return needsQuotes(name) ? "'" + replaceAll(name, "'", "''") + "'" : name;
}

std::optional<SheetReference> parseReference(std::string_view formula) {
    const std::optional<std::string> name =
        formula.starts_with('\'') ? takeQuotedName(formula) : takePlainName(formula);
    if (!name) return {};
    const std::optional<CellArea> area = parseArea(formula);
    if (!area) return {};
    return SheetReference{*name, *area};
}

std::string referenceText(const SheetReference& reference) {
    const std::string area = absoluteAddressOf(reference.area);
    return reference.sheetName.empty() ? area : writtenSheetName(reference.sheetName) + "!" + area;
}

}  // namespace mergeloom::excel
