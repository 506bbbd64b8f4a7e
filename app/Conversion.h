#pragma once

#include "office/model/FileConverter.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <functional>
#include <string>

namespace mergeloom {

/// Converts the documents of an office that knows nothing but Open Packaging from and to other formats. Every
/// error names the user's file, never the temporary one.
template <typename Format>
class Conversion {
  public:
    using Step = std::function<void(const std::string& path)>;

    /// The converter has to outlive it.
    explicit Conversion(FileConverter& converter) : converter_(converter) {}

    [[nodiscard]] bool canWrite(Format format) { return converter_.canWrite(format); }
    /// Converts the file and has it opened. Raises kNotAvailable, with a sentence that says what to install,
    /// when there is no office that converts; further errors as FileConverter's and of the opening.
    void read(const std::string& path, const Step& open);
    /// Has the document saved in the temporary format and converts that to the format. An existing file at
    /// the path stays whole until then. Errors as FileConverter's and of the saving.
    void write(const std::string& path, Format format, const Step& save);

  private:
    FileConverter& converter_;
};

/// Returns the format of the file between an office and the converter.
constexpr word::WdSaveFormat temporaryFormat(word::WdSaveFormat) {
    return word::WdSaveFormat::wdFormatXMLDocument;
}
constexpr excel::XlFileFormat temporaryFormat(excel::XlFileFormat) {
    return excel::XlFileFormat::xlOpenXMLWorkbook;
}

/// Returns why files of another format cannot be opened here and now, as a sentence; empty when they can.
template <typename Format>
std::string refusalToRead(FileConverter& converter, const std::string& path);

}  // namespace mergeloom
