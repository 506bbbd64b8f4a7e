#pragma once

#include "base/FileStore.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/FileConverter.h"

#include <string>

namespace mergeloom {

/// Knows the formats that the selected office writes and opens, by itself or through a converter. No member
/// starts an office, so that a request can be refused before.
class OfficeFormats {
  public:
    /// The store and the converter have to outlive it.
    OfficeFormats(OfficeKind kind, FileStore& files, FileConverter& converter)
        : kind_(kind), files_(files), converter_(converter) {}

    /// Return why the office does not write the format, as sentences that say what to install or to choose;
    /// empty when it does. Word and Excel write all formats that have a number.
    [[nodiscard]] std::string refusalToWrite(word::WdSaveFormat format) const;
    [[nodiscard]] std::string refusalToWrite(excel::XlFileFormat format) const;
    /// Return true when the embedded office leaves the format to the converter.
    [[nodiscard]] bool isConverted(word::WdSaveFormat format) const;
    [[nodiscard]] bool isConverted(excel::XlFileFormat format) const;
    /// Return the format in which the office writes a file of that name. Several formats may share an
    /// extension.
    [[nodiscard]] word::WdSaveFormat documentFormatOf(const std::string& path) const;
    [[nodiscard]] excel::XlFileFormat workbookFormatOf(const std::string& path) const;
    /// Return why the office does not open a file of that name, in the same way. The content of the file is
    /// not read.
    [[nodiscard]] std::string refusalToOpenDocument(const std::string& path) const;
    [[nodiscard]] std::string refusalToOpenWorkbook(const std::string& path) const;

  private:
    OfficeKind kind_;
    FileStore& files_;
    FileConverter& converter_;
};

}  // namespace mergeloom
