#include "app/FilledFormat.h"

#include "app/FileFormats.h"

namespace mergeloom {

namespace {

template <typename Format>
class FormatOf final : public FilledFormat {
  public:
    FormatOf(const OfficeFormats& formats, Format format, bool hasExtension, const char* choices)
        : formats_(formats),
          format_(format),
          isConverted_(hasExtension && formats.isConverted(format)),
          hasExtension_(hasExtension),
          choices_(choices) {}

    [[nodiscard]] std::string refusal() const override {
        if (hasExtension_) return formats_.refusalToWrite(format_);
        return std::string("its format is not available. Choose ") + choices_ + ".";
    }
    [[nodiscard]] bool isConverted() const override { return isConverted_; }
    void applyTo(letters::LetterSettings& settings) const override {
        set(settings, isConverted_ ? temporaryFormat(format_) : format_);
    }
    void save(FileStore& files, FileConverter& converter, const std::string& path,
              const std::function<void(ByteSink&)>& writer) const override {
        if (!isConverted_) return files.saveInBatch(path, writer);
        Conversion<Format> conversion{converter};
        conversion.write(path, format_,
                         [&](const std::string& temporary) { files.saveInBatch(temporary, writer); });
    }
    [[nodiscard]] bool hasPages() const override { return isConverted_ && isPaged(format_); }
    bool saveRecords(FileStore& files, FileConverter& converter, const std::vector<std::string>& paths,
                     const std::function<void(ByteSink&)>& writer,
                     const std::function<void()>& written) const override {
        Conversion<Format> conversion{converter};
        return conversion.writeRecords(
            paths, format_, [&](const std::string& temporary) { files.saveInBatch(temporary, writer); },
            written);
    }

  private:
    static bool isPaged(word::WdSaveFormat format) { return format == word::WdSaveFormat::wdFormatPDF; }
    static bool isPaged(excel::XlFileFormat) { return false; }
    static void set(letters::LetterSettings& settings, word::WdSaveFormat format) {
        settings.format = format;
    }
    static void set(letters::LetterSettings& settings, excel::XlFileFormat format) {
        settings.workbookFormat = format;
    }

    const OfficeFormats& formats_;
    Format format_;
    bool isConverted_;
    bool hasExtension_;
    const char* choices_;
};

}  // namespace

std::unique_ptr<FilledFormat> filledFormat(const OfficeFormats& formats, DocumentFamily family,
                                           const std::string& output) {
    if (family == DocumentFamily::Excel) {
        return std::make_unique<FormatOf<excel::XlFileFormat>>(formats, formats.workbookFormatOf(output),
                                                               hasExcelExtension(output), "xlsx or xlsm");
    }
    return std::make_unique<FormatOf<word::WdSaveFormat>>(formats, formats.documentFormatOf(output),
                                                          hasWordExtension(output), "docx or docm");
}

}  // namespace mergeloom
