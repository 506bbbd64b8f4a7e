#pragma once

#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "office/model/FileConverter.h"

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// A converter whose files of other formats are Open Packaging after a line with the number of the format.
/// Any other file counts as damaged.
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

    /// Writes a line with the number of the record, too.
    bool convertRecords(const std::string& from, const std::vector<std::string>& to,
                        word::WdSaveFormat format, const std::function<void()>& written) override {
        for (std::size_t record = 0; keepsRecordsApart && record < to.size(); ++record) {
            const std::string label = "record " + std::to_string(record) + "\n";
            convertTo(from, to[record], static_cast<int>(format), 12, label);
            written();
        }
        return keepsRecordsApart;
    }

    bool keepsRecordsApart = true;
    bool isInstalled = true;
    bool failsToWrite = false;

  private:
    [[nodiscard]] std::string refusalOf(int format, int unknownFormat) const {
        if (format == unknownFormat) return "Nobody writes that.";
        return isInstalled ? "" : "Install the converter.";
    }

    void convertTo(const std::string& from, const std::string& to, int format, int openPackaging,
                   const std::string& label = "") {
        std::string bytes = files_->read(from);
        if (bytes.starts_with("format ")) bytes.erase(0, bytes.find('\n') + 1);
        if (!bytes.starts_with("PK"))
            throw AutomationError(kFileCouldNotBeRead, "The file '" + from + "' could not be read: damaged.");
        if (format != openPackaging) bytes = labelled(format, bytes);
        bytes.insert(0, label);
        if (failsToWrite)
            throw AutomationError(kFileCouldNotBeSaved, "The file '" + to + "' could not be saved: no ink.");
        files_->save(to, [&](ByteSink& sink) { sink.write(bytes); });
    }

    FileStore*& files_;
};

}  // namespace mergeloom
