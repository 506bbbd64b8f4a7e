#include "office/embedded/excel/NameFormula.h"

#include "base/AutomationError.h"
#include "office/model/excel/SheetReference.h"

namespace mergeloom::embedded {

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

}  // namespace mergeloom::embedded
