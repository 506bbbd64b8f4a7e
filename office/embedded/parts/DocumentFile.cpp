#include "office/embedded/parts/DocumentFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

namespace mergeloom::embedded {

std::string DocumentFile::name() const {
    return fileNameOnly(fullName_);
}

void DocumentFile::save(opc::Package& package) {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(package, fullName_);
}

void DocumentFile::saveAs(opc::Package& package, DocumentFamily family, int number,
                          const std::string& fileName) {
    const std::string mainPart = package.mainPart();
    const std::string formerType = package.contentTypes().of(mainPart);
    setSaveFormat(package, family, number, fileName);
    try {
        write(package, fileName);
    } catch (const AutomationError&) {
        // The document keeps its former name, and with it the kind of file that the name says.
        package.contentTypes().setOverride(mainPart, formerType);
        throw;
    }
    fullName_ = fileName;
    hasFile_ = true;
}

void DocumentFile::write(opc::Package& package, const std::string& fileName) {
    files_.save(fileName, [&](ByteSink& sink) { package.write(sink); });
}

}  // namespace mergeloom::embedded
