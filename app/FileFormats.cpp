#include "app/FileFormats.h"

#include "base/Paths.h"
#include "base/Text.h"
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

bool hasExcelExtension(const std::string& path) {
    return isExcelExtension(lowerExtension(path));
}

excel::XlFileFormat excelFormatOf(const std::string& path) {
    return static_cast<excel::XlFileFormat>(excelFormatByExtension(lowerExtension(path)));
}

}  // namespace mergeloom
