#include "office/graft/OriginalFormat.h"

#include "base/AutomationError.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/graft/Losses.h"

#include <string>

namespace mergeloom::graft {

model::GraftResult unchanged(const model::EditedPackage& package, DocumentFamily family) {
    const FileFormat* const format = findFormat(family, package.format);
    opc::Package original = opc::Package::read(package.original, package.fileName);
    const bool hasFormat = format != nullptr && format->engine &&
                           original.contentTypes().of(original.mainPart()) == format->engine->contentType;
    if (hasFormat) return model::NothingChanged();
    return savedOriginal(original, package, family);
}

model::GraftResult savedOriginal(opc::Package& original, const model::EditedPackage& package,
                                 DocumentFamily family) {
    return model::GraftedPackage{embedded::savedBytes(original, family, package.format, package.fileName)};
}

bool isExportOfOffice(const model::EditedPackage& package) try {
    const opc::Package original = opc::Package::read(package.original, package.fileName);
    const std::string properties = "/docProps/app.xml";
    const bool isItsOwn = original.hasPart(properties) &&
                          original.readPart(properties).find("<Application>LibreOffice") != std::string::npos;
    return isItsOwn && lossesBetween(package.original, package.baseline).empty();
} catch (const AutomationError&) {
    return false;
}

}  // namespace mergeloom::graft
