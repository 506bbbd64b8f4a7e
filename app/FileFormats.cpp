#include "app/FileFormats.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/OfferedFormats.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mWordFileExtensions.h"

namespace mergeloom {

namespace {

std::string lowerExtension(const std::string& path) {
    return toLowerAscii(extension(path));
}

}  // namespace

bool hasWordExtension(const std::string& path) {
    return isWordExtension(lowerExtension(path));
}

word::WdSaveFormat wordFormatOf(const std::string& path) {
    return static_cast<word::WdSaveFormat>(wordFormatByExtension(lowerExtension(path)));
}

word::WdSaveFormat wordFormatToWrite(const std::string& path,
                                     const std::function<bool(word::WdSaveFormat)>& canWrite) {
    return static_cast<word::WdSaveFormat>(
        writableFormat(DocumentFamily::Word, lowerExtension(path),
                       [&](int format) { return canWrite(static_cast<word::WdSaveFormat>(format)); }));
}

bool isForeignWordFile(const std::string& path) {
    return isForeignExtension(DocumentFamily::Word, lowerExtension(path));
}

bool hasExcelExtension(const std::string& path) {
    return isExcelExtension(lowerExtension(path));
}

excel::XlFileFormat excelFormatOf(const std::string& path) {
    return static_cast<excel::XlFileFormat>(excelFormatByExtension(lowerExtension(path)));
}

excel::XlFileFormat excelFormatToWrite(const std::string& path,
                                       const std::function<bool(excel::XlFileFormat)>& canWrite) {
    return static_cast<excel::XlFileFormat>(
        writableFormat(DocumentFamily::Excel, lowerExtension(path),
                       [&](int format) { return canWrite(static_cast<excel::XlFileFormat>(format)); }));
}

bool isForeignExcelFile(const std::string& path) {
    return isForeignExtension(DocumentFamily::Excel, lowerExtension(path));
}

bool isWorkbookFile(const std::string& path) {
    return familyOf(lowerExtension(path)) == DocumentFamily::Excel;
}

}  // namespace mergeloom
