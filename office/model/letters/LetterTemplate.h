#pragma once

#include "base/FileStore.h"
#include "base/Record.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/letters/PlaceSource.h"
#include "office/model/word/Enumerations.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::letters {

/// Decides what is kept of a table whose subform has no records.
enum class EmptyTables { KeepCaptions, Remove };
/// Decides if each record is written to its own document or to a section of one document.
enum class LetterUse { OneEach, OneForAll };
/// Decides if hidden bookmarks in one document for all records mark where each record starts. There are no
/// others then, so that all records are laid out alike.
enum class RecordMarks { None, Bookmarks };

/// Returns the path of the file of an image, or an empty text if there is none.
using PictureFinder = std::function<std::string(const std::string& image)>;

struct LetterSettings {
    EmptyTables emptyTables = EmptyTables::KeepCaptions;
    LetterUse use = LetterUse::OneEach;
    RecordMarks marks = RecordMarks::None;
    PictureFinder findPicture{};
    word::WdSaveFormat format = word::WdSaveFormat::wdFormatXMLDocument;
    excel::XlFileFormat workbookFormat = excel::XlFileFormat::xlOpenXMLWorkbook;
    std::string fileName{};  ///< of the letters, for errors
};

/// A compiled template, which writes letters.
class Letters {
  public:
    Letters() = default;
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;
    virtual ~Letters() = default;

    /// Returns a sentence for each place or table that cannot be filled.
    [[nodiscard]] virtual const std::vector<std::string>& refusals() const = 0;
    /// Returns the sources of all filled places.
    [[nodiscard]] virtual std::vector<PlaceSource> filledPlaces() const = 0;
    /// Returns true if a table lists the records themselves, so that one letter contains all of them.
    [[nodiscard]] virtual bool listsRecords() const = 0;
    /// Returns the paths of the subforms of which some place shows only the first record, since it is in no
    /// row that repeats.
    [[nodiscard]] virtual std::vector<ControlPath> firstRecordsOnly() const = 0;
    /// Returns the paths of the subforms whose table has no row to repeat.
    [[nodiscard]] virtual std::vector<ControlPath> tablesWithoutRows() const = 0;
    /// Returns a sentence for each kind of data that could not be written as it is.
    [[nodiscard]] virtual std::vector<std::string> remarks() const = 0;

    /// Returns true if the records of one document look as they do in documents of their own, so that an
    /// office can lay out all of them together.
    [[nodiscard]] virtual bool canShareLayout() const = 0;

    /// Writes a letter. Takes one record, all records if a table lists them, or one for each label of a
    /// sheet.
    virtual void write(std::span<const Record> records, ByteSink& sink) = 0;

    /// Appends a record to the document of all records, as a section or as a label of a sheet.
    virtual void append(const Record& record) = 0;
    /// Writes the document of all records so far. The next record begins another document.
    virtual void finish(ByteSink& sink) = 0;
};

/// A document or workbook with places that are filled with the values of records.
class LetterTemplate {
  public:
    LetterTemplate() = default;
    LetterTemplate(const LetterTemplate&) = delete;
    LetterTemplate& operator=(const LetterTemplate&) = delete;
    virtual ~LetterTemplate() = default;

    /// Returns the names of all bookmarks of the document, or of all names of the workbook.
    [[nodiscard]] virtual std::vector<std::string> bookmarkNames() = 0;
    /// Returns the names of the bookmarks whose text equals their name; of a workbook, the names whose cells
    /// show a name in brackets.
    [[nodiscard]] virtual std::vector<std::string> fieldNames() = 0;
    /// Returns the number of labels on a sheet of labels; 0 for any other document.
    [[nodiscard]] virtual std::size_t labelsPerSheet(const PlaceSources& sources) = 0;
    /// Compiles the template. Must be called only once.
    virtual std::unique_ptr<Letters> compile(const PlaceSources& sources, const LetterSettings& settings) = 0;
};

}  // namespace mergeloom::letters
