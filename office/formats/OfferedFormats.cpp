#include "office/formats/OfferedFormats.h"

#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mOfficeVersion.h"
#include "office/formats/mWordFileExtensions.h"

#include <algorithm>

namespace mergeloom {

std::vector<OfferedFormat> offeredWordFormats(int wordVersion, const FormatPredicate& canWrite) {
    std::vector<OfferedFormat> offered;
    for (const int format : offeredWordFormats()) {
        if (canWordSave(format, wordVersion) && canWrite(format))
            offered.push_back({format, wordFormatName(format), wordFilter(format)});
    }
    return offered;
}

std::vector<OfferedFormat> offeredExcelFormats(int excelVersion, const FormatPredicate& canWrite) {
    std::vector<OfferedFormat> offered;
    for (const int format : offeredExcelFormats()) {
        if (canExcelSave(format, excelVersion) && canWrite(format))
            offered.push_back({format, excelFormatName(format), excelFilter(format)});
    }
    return offered;
}

int writableWordFormat(std::string_view extension, const FormatPredicate& canWrite) {
    const auto found = std::ranges::find_if(offeredWordFormats(), [&](int format) {
        return fitsFormat(extension, wordExtension(format)) && canWrite(format);
    });
    return found == offeredWordFormats().end() ? wordFormatByExtension(extension) : *found;
}

int writableExcelFormat(std::string_view extension, const FormatPredicate& canWrite) {
    const auto found = std::ranges::find_if(offeredExcelFormats(), [&](int format) {
        return fitsFormat(extension, excelExtension(format)) && canWrite(format);
    });
    return found == offeredExcelFormats().end() ? excelFormatByExtension(extension) : *found;
}

}  // namespace mergeloom
