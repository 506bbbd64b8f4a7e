#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// Converts files to other formats, for offices that do not write the format themselves.
class FileConverter {
  public:
    virtual ~FileConverter() = default;

    /// Returns the reason why documents cannot be written in the format at present, as a sentence that says
    /// what to install if that would help; empty when they can. Starts no office.
    virtual std::string refusal(word::WdSaveFormat format) = 0;
    virtual std::string refusal(excel::XlFileFormat format) = 0;
    [[nodiscard]] bool canWrite(word::WdSaveFormat format) { return refusal(format).empty(); }
    [[nodiscard]] bool canWrite(excel::XlFileFormat format) { return refusal(format).empty(); }

    /// Reads the document at one path, by its extension and content, and writes it to the other in the format
    /// of that number. Macros are not run and links not updated. An existing target stays whole
    /// until the new file is complete. Raises, with sentences that name the file,
    /// - kNotAvailable when no office is installed, it ended meanwhile, or it does not write the format,
    /// - kFileCouldNotBeRead for a file that is missing, damaged, protected by a password or no document,
    /// - kFileCouldNotBeSaved when the target cannot be written.
    virtual void convert(const std::string& from, const std::string& to, word::WdSaveFormat format) = 0;
    virtual void convert(const std::string& from, const std::string& to, excel::XlFileFormat format) = 0;

    /// Reads a document of several records, whose starts are marked (RecordMark.h), and writes the pages of
    /// each record to a file of its own, in their order; calls written after each file. The files are safe
    /// after FileStore::finishBatch. Returns false, and writes nothing, if the records do not start on pages
    /// of their own. Only a format with pages is allowed. Errors as for convert.
    virtual bool convertRecords(const std::string& from, const std::vector<std::string>& to,
                                word::WdSaveFormat format, const std::function<void()>& written) = 0;
};

}  // namespace mergeloom
