#include "office/formats/TemplateFormats.h"

#include "office/formats/FormatTable.h"
#include "office/formats/mFileExtensions.h"

#include <algorithm>

namespace mergeloom {

bool keepsPlaces(DocumentFamily family, int format) {
    const FileFormat* const found = findFormat(family, format);
    return found != nullptr && found->places == Places::Kept;
}

std::vector<OfferedFormat> formatsOfTemplates(DocumentFamily family, int version,
                                              const FormatPredicate& canUse) {
    std::vector<OfferedFormat> formats = offeredFormats(
        family, version, [&](int format) { return keepsPlaces(family, format) && canUse(format); });
    std::ranges::stable_partition(formats, [&](const OfferedFormat& format) {
        return officeDocumentType(family, format.number) == OfficeDocumentType::Template;
    });
    return formats;
}

}  // namespace mergeloom
