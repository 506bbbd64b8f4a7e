#include "office/libreoffice/excel/CalcShapes.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcShape.h"

namespace mergeloom::libreoffice {

excel::ShapePtr CalcShapes::Item(int number) {
    const CalcShapeEntryPtr entry = table().all()[indexOf(number)];
    return std::make_shared<CalcShape>(CalcDrawnObject(content_, sheet_, entry));
}

excel::ShapePtr CalcShapes::Item(const std::string& name) {
    const CalcShapeEntryPtr entry = table().find(name);
    if (!entry) throw AutomationError(kApplicationDefined, "There is no object '" + name + "'.");
    return std::make_shared<CalcShape>(CalcDrawnObject(content_, sheet_, entry));
}

}  // namespace mergeloom::libreoffice
