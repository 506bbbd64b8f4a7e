#pragma once

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/model/FileConverter.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// Converts the documents of an office that supports only Open Packaging from and to other formats. Every
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
    /// Has a document of several records saved and converts the pages of each record, as
    /// FileConverter::convertRecords.
    bool writeRecords(const std::vector<std::string>& paths, Format format, const Step& save,
                      const std::function<void()>& written);

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

/// The file by which users know an open document, whatever its office calls it: after a conversion the office
/// only knows the temporary file. The document is one of Word's or Excel's.
template <typename Document, typename Format>
class ConvertedFile {
  public:
    /// A document without a known file in any format, such as a new one, comes without a format.
    ConvertedFile(std::shared_ptr<Document> document, Conversion<Format> conversion, std::string fullName,
                  std::optional<Format> format)
        : document_(std::move(document)),
          conversion_(conversion),
          fullName_(std::move(fullName)),
          format_(format) {}

    [[nodiscard]] Document& document() const { return *document_; }
    [[nodiscard]] const std::string& fullName() const { return fullName_; }
    [[nodiscard]] std::string name() const { return fileNameOnly(fullName_); }

    /// Writes the document to its own file, in its own format. Errors as for Document::Save.
    void save();
    /// Saves in the formats that the office writes itself, and converts to other formats.
    void saveAs(const std::string& path, Format format);

  private:
    void convertTo(const std::string& path, Format format);

    std::shared_ptr<Document> document_;
    Conversion<Format> conversion_;
    std::string fullName_;
    std::optional<Format> format_;
};

template <typename Document, typename Format>
void ConvertedFile<Document, Format>::save() {
    if (document_->FullName() == fullName_) {
        document_->Save();
    } else if (format_) {
        saveAs(fullName_, *format_);
    } else {
        throw AutomationError(kFileCouldNotBeSaved,
                              "The document '" + fullName_ +
                                  "' could not be saved: its name stands for no format. "
                                  "Save it under another name.");
    }
}

template <typename Document, typename Format>
void ConvertedFile<Document, Format>::saveAs(const std::string& path, Format format) {
    if (document_->Application()->canSaveAs(format)) {
        document_->SaveAs(path, format);
    } else {
        convertTo(path, format);
    }
    fullName_ = path;
    format_ = format;
}

template <typename Document, typename Format>
void ConvertedFile<Document, Format>::convertTo(const std::string& path, Format format) {
    const bool wasSaved = document_->Saved();
    try {
        conversion_.write(path, format, [this, format](const std::string& temporary) {
            document_->SaveAs(temporary, temporaryFormat(format));
        });
    } catch (const AutomationError&) {
        // The office has saved its file, but the user's file is not written.
        document_->SetSaved(wasSaved);
        throw;
    }
}

}  // namespace mergeloom
