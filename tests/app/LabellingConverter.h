#pragma once

#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "office/model/FileConverter.h"

#include <string>

namespace mergeloom {

/// A converter whose files of other formats are those of Open Packaging after a line with the format's
/// number. Any other file counts as damaged.
class LabellingConverter final : public FileConverter {
  public:
    explicit LabellingConverter(FileStore*& files) : files_(files) {}

    static std::string labelled(int format, const std::string& package) {
        return "format " + std::to_string(format) + "\n" + package;
    }

    std::string refusal(word::WdSaveFormat format) override {
        return refusalOf(static_cast<int>(format), 18);
    }
    std::string refusal(excel::XlFileFormat format) override {
        return refusalOf(static_cast<int>(format), 50);
    }
    void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) override {
        convertTo(from, to, static_cast<int>(format), 12);
    }
    void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) override {
        convertTo(from, to, static_cast<int>(format), 51);
    }

    bool isInstalled = true;
    bool failsToWrite = false;

  private:
    [[nodiscard]] std::string refusalOf(int format, int unknownFormat) const {
        if (format == unknownFormat) return "Nobody writes that.";
        return isInstalled ? "" : "Install the converter.";
    }

    void convertTo(const std::string& from, const std::string& to, int format, int openPackaging) {
        std::string bytes = files_->read(from);
        if (bytes.starts_with("format ")) bytes.erase(0, bytes.find('\n') + 1);
        if (!bytes.starts_with("PK"))
            throw AutomationError(kFileCouldNotBeRead, "The file '" + from + "' could not be read: damaged.");
        if (format != openPackaging) bytes = labelled(format, bytes);
        if (failsToWrite)
            throw AutomationError(kFileCouldNotBeSaved, "The file '" + to + "' could not be saved: no ink.");
        files_->save(to, [&](ByteSink& sink) { sink.write(bytes); });
    }

    FileStore*& files_;
};

}  // namespace mergeloom
