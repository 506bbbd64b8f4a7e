#include "office/formats/OfferedFormats.h"

#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mOfficeVersion.h"
#include "office/formats/mWordFileExtensions.h"

namespace mergeloom {

std::vector<OfferedFormat> offeredFormats(DocumentFamily family, int version,
                                          const FormatPredicate& canWrite) {
    std::vector<OfferedFormat> offered;
    for (const FileFormat& format : offeredFormats(family)) {
        if (canSave(format.savedBy, version) && canWrite(format.number))
            offered.push_back({format.number, std::string(format.name), extensionFilter(format.extension)});
    }
    return offered;
}

int writableFormat(DocumentFamily family, std::string_view extension, const FormatPredicate& canWrite) {
    for (const FileFormat& format : offeredFormats(family)) {
        if (fitsFormat(extension, format.extension) && canWrite(format.number)) return format.number;
    }
    return family == DocumentFamily::Word ? wordFormatByExtension(extension)
                                          : excelFormatByExtension(extension);
}

}  // namespace mergeloom
