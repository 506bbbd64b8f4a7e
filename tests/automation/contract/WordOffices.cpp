#include "automation/WordDouble.h"
#include "automation/contract/StartedDouble.h"
#include "contract/ContractOffices.h"
#include "office/com/word/ComWord.h"
#include "office/embedded/word/EmbeddedOffice.h"

namespace mergeloom {

namespace {

const testing::Environment* const kDouble =
    testing::AddGlobalTestEnvironment(new automation::DoubleEnvironment(automation::kWordDouble));

com::DispatchPtr startDouble(FileStore& files) {
    if (!automation::doubleProgram().empty()) return automation::startDouble(automation::kWordDouble, files);
    return automation::makeWordDouble(embedded::makeWordApplication(files), {}, [] {});
}

}  // namespace

word::ApplicationPtr startContractWord(OfficeKind kind, FileStore& files) {
    if (kind == OfficeKind::Embedded) return embedded::makeWordApplication(files);
    return com::makeWordApplication({.application = startDouble(files)});
}

// In this program the factory returns a Word over calls of automation for every kind of office, so that the
// tests of the embedded office test these calls unchanged.

word::ApplicationPtr makeWordApplication(OfficeKind, FileStore& files, const std::string&) {
    return startContractWord(OfficeKind::Com, files);
}

}  // namespace mergeloom
