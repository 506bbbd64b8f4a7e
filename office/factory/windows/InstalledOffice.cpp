#include "office/factory/InstalledOffice.h"

#include "office/com/excel/ComExcel.h"
#include "office/com/word/ComWord.h"
#include "office/factory/OfficeFactory.h"

namespace mergeloom {

namespace {

com::OfficeServer serverOf(const char* programIdentifier, const std::string& traceFile) {
    return {.programIdentifier = programIdentifier,
            .trace = traceFile.empty() ? nullptr : com::makeFileTrace(traceFile)};
}

}  // namespace

OfficeKind installedOffice() {
    return OfficeKind::Com;
}

word::ApplicationPtr startInstalledWord(const std::string& traceFile) {
    return com::makeWordApplication(serverOf("Word.Application", traceFile));
}

excel::ApplicationPtr startInstalledExcel(const std::string& traceFile) {
    return com::makeExcelApplication(serverOf("Excel.Application", traceFile));
}

}  // namespace mergeloom
