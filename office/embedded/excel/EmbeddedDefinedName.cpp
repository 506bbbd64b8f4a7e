#include "office/embedded/excel/EmbeddedDefinedName.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/NameFormula.h"
#include "office/model/excel/SheetReference.h"

namespace mergeloom::embedded {

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

}  // namespace mergeloom::embedded
