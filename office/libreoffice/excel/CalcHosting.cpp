#include "office/libreoffice/excel/CalcHosting.h"

#include "office/libreoffice/excel/CalcWorkbook.h"

namespace mergeloom::libreoffice {

namespace {

CalcWorkbook& calcOf(excel::Workbook& workbook) {
    return dynamic_cast<CalcWorkbook&>(workbook);
}

}  // namespace

DocumentReference componentOf(excel::Workbook& workbook) {
    return calcOf(workbook).content()->document();
}

}  // namespace mergeloom::libreoffice
