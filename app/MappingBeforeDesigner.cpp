#include "app/MappingBeforeDesigner.h"

#include "app/CAutoMapping.h"
#include "app/MergeloomErrorCodes.h"
#include "app/OfficeSelector.h"
#include "base/DiskFileStore.h"
#include "base/ErrorHandler.h"

namespace mergeloom {

namespace {

void mapOrRaise(const GnuOptions& options, ErrorHandler& errors, Messages& messages, Progress& progress) {
    DiskFileStore files;
    OfficeSelector office(options, files);
    CAutoMapping mapping = office.makeMapping(errors, messages, progress);
    mapping.SetAllowExistingTemplate(true);
    mapping.SetOptions(options.mapping);
    mapping.ReadArguments();
    if (!mapping.Execute()) RaiseMappingError(kMappingStopped);
}

}  // namespace

bool mapBeforeDesigner(const GnuOptions& options, ErrorHandler& errors, Messages& messages,
                       Progress& progress) {
    try {
        mapOrRaise(options, errors, messages, progress);
        return true;
    } catch (const AutomationError& error) {
        reportEntryError(error, errors, messages);
    } catch (const std::exception& error) {
        errors.report({0, error.what(), {}, "modMain", "Main", shownPlace(std::source_location::current())});
    }
    return false;
}

}  // namespace mergeloom
