#include "office/embedded/excel/EmbeddedNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/SheetReference.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

/// Returns the formula of a name (without "=") for the value of RefersToLocal: cells without a sheet are
/// those of the active sheet. Raises kApplicationDefined for a text that is not a formula, and for cells
/// without a sheet while the active sheet has no cells.
std::string nameFormula(const WorkbookContent& content, const std::string& refersToLocal) {
    if (refersToLocal.size() < 2 || refersToLocal.front() != '=') {
        throw AutomationError(kApplicationDefined, "'" + refersToLocal + "' is no formula.");
    }
    std::string formula = refersToLocal.substr(1);
    std::optional<excel::SheetReference> reference = excel::parseReference(formula);
    if (!reference || !reference->sheetName.empty()) return formula;
    reference->sheetName = content.workbook().sheets()[content.activeWorksheet()].name;
    return excel::referenceText(*reference);
}

class EmbeddedDefinedName final : public excel::DefinedName {
  public:
    EmbeddedDefinedName(std::shared_ptr<WorkbookContent> content, std::size_t index)
        : content_(std::move(content)), index_(index) {}

    std::string Name() override;
    bool Visible() override { return !entry().hidden; }
    std::string RefersToLocal() override { return "=" + entry().formula; }
    void SetRefersToLocal(const std::string& formula) override;
    excel::RangePtr RefersToRange() override;
    void Delete() override;

  private:
    [[nodiscard]] DefinedNames::Entry entry() const { return content_->workbook().names().at(index_); }

    std::shared_ptr<WorkbookContent> content_;
    std::size_t index_;
};

std::string EmbeddedDefinedName::Name() {
    const DefinedNames::Entry name = entry();
    const auto& sheets = content_->workbook().sheets();
    if (name.sheet < 0 || static_cast<std::size_t>(name.sheet) >= sheets.size()) return name.name;
    return sheets[static_cast<std::size_t>(name.sheet)].name + "!" + name.name;
}

void EmbeddedDefinedName::SetRefersToLocal(const std::string& formula) {
    content_->workbook().names().setFormula(index_, nameFormula(*content_, formula));
    content_->touch();
}

excel::RangePtr EmbeddedDefinedName::RefersToRange() {
    const std::optional<excel::SheetReference> reference = excel::parseReference(entry().formula);
    const std::optional<std::size_t> sheet =
        reference ? content_->worksheetNamed(reference->sheetName) : std::nullopt;
    if (!sheet) {
        throw AutomationError(kApplicationDefined, "The name '" + Name() + "' does not stand for cells.");
    }
    return rangeOf(content_, *sheet, reference->area);
}

void EmbeddedDefinedName::Delete() {
    content_->workbook().names().remove(index_);
    content_->touch();
}

/// Returns the sheet's index in the workbook's list, regardless of its kind.
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

/// A table's name is in use too, although Item() does not return it.
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
