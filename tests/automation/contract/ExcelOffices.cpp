#include "automation/ExcelDouble.h"
#include "automation/contract/StartedDouble.h"
#include "contract/ContractOffices.h"
#include "office/com/excel/ComExcel.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/word/EmbeddedOffice.h"

namespace mergeloom {

namespace {

const testing::Environment* const kDouble =
    testing::AddGlobalTestEnvironment(new automation::DoubleEnvironment(automation::kExcelDouble));

com::DispatchPtr startDouble(FileStore& files) {
    if (!automation::doubleProgram().empty()) return automation::startDouble(automation::kExcelDouble, files);
    return automation::makeExcelDouble(embedded::makeExcelApplication(files), {}, [] {});
}

}  // namespace

excel::ApplicationPtr startContractExcel(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeExcelApplication(files);
    return com::makeExcelApplication({.application = startDouble(files)});
}

// In this program the factory returns an Excel over calls of automation for every kind of office.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files, const std::string&) {
    return embedded::makeWordApplication(files);
}

excel::ApplicationPtr makeExcelApplication(OfficeKind, FileStore& files, const std::string&) {
    return startContractExcel(OfficeKind::Com, files);
}

}  // namespace mergeloom
