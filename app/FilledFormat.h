#pragma once

#include "app/Conversion.h"
#include "app/OfficeFormats.h"
#include "base/FileStore.h"
#include "office/formats/FormatTable.h"
#include "office/model/FileConverter.h"
#include "office/model/letters/LetterTemplate.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// The format of the files that a filled template is written to.
class FilledFormat {
  public:
    FilledFormat() = default;
    FilledFormat(const FilledFormat&) = delete;
    FilledFormat& operator=(const FilledFormat&) = delete;
    virtual ~FilledFormat() = default;

    /// Returns why a file of the output's name cannot be written, as a clause; empty if it can.
    [[nodiscard]] virtual std::string refusal() const = 0;
    /// Returns true if an office converts what the engine writes.
    [[nodiscard]] virtual bool isConverted() const = 0;
    /// Sets the format in which the engine writes.
    virtual void applyTo(letters::LetterSettings& settings) const = 0;
    /// Saves what the engine writes, and converts it if the engine does not write the format.
    virtual void save(FileStore& files, FileConverter& converter, const std::string& path,
                      const std::function<void(ByteSink&)>& writer) const = 0;
    /// Returns true if the pages of a document can be saved to several files.
    [[nodiscard]] virtual bool hasPages() const = 0;
    /// Saves the pages of each record of what the engine writes to a file of its own; calls written after
    /// each. Returns false, and saves nothing, if the records do not start on pages of their own.
    virtual bool saveRecords(FileStore& files, FileConverter& converter,
                             const std::vector<std::string>& paths,
                             const std::function<void(ByteSink&)>& writer,
                             const std::function<void()>& written) const = 0;
};

/// Returns the format of an output's name, for a template of that family. The formats must outlive it.
std::unique_ptr<FilledFormat> filledFormat(const OfficeFormats& formats, DocumentFamily family,
                                           const std::string& output);

}  // namespace mergeloom
