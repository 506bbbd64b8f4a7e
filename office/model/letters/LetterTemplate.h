#pragma once

#include "base/FileStore.h"
#include "base/Record.h"
#include "office/model/letters/PlaceSource.h"
#include "office/model/word/Enumerations.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::letters {

/// What becomes of a table whose subform has no records.
enum class EmptyTables { KeepCaptions, Remove };
/// Whether each record gets a document of its own or a section of one document.
enum class LetterUse { OneEach, OneForAll };

struct LetterSettings {
    EmptyTables emptyTables = EmptyTables::KeepCaptions;
    LetterUse use = LetterUse::OneEach;
    /// Returns the path of the file that an image of a record names, or an empty text.
    std::function<std::string(const std::string& image)> findPicture{};
    word::WdSaveFormat format = word::WdSaveFormat::wdFormatXMLDocument;
};

/// The letters of a template that was compiled.
class Letters {
  public:
    Letters() = default;
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;
    virtual ~Letters() = default;

    /// Returns the places and tables that no value can replace, as sentences.
    [[nodiscard]] virtual const std::vector<std::string>& refusals() const = 0;
    /// Returns the sources of all places that are filled.
    [[nodiscard]] virtual std::vector<PlaceSource> filledPlaces() const = 0;
    /// Returns whether a table lists the records themselves, so that all of them belong into one letter.
    [[nodiscard]] virtual bool listsRecords() const = 0;
    /// Returns what was done differently than the data ask for, as sentences; each one once.
    [[nodiscard]] virtual std::vector<std::string> remarks() const = 0;

    /// Writes the letter of one record, of all records when a table lists them, or the labels of as many as a
    /// sheet holds.
    virtual void write(std::span<const Record> records, ByteSink& sink) = 0;

    /// Appends the section of a record to the one document; a sheet of labels is the section of its records.
    virtual void append(const Record& record) = 0;
    /// Writes the one document.
    virtual void finish(ByteSink& sink) = 0;
};

/// A document with places that records can fill.
class LetterTemplate {
  public:
    LetterTemplate() = default;
    LetterTemplate(const LetterTemplate&) = delete;
    LetterTemplate& operator=(const LetterTemplate&) = delete;
    virtual ~LetterTemplate() = default;

    /// Returns the names of all bookmarks of the document.
    [[nodiscard]] virtual std::vector<std::string> bookmarkNames() = 0;
    /// Returns the bookmarks whose text is their name.
    [[nodiscard]] virtual std::vector<std::string> fieldNames() = 0;
    /// Returns how many labels a sheet of labels has; 0 for a document that is none.
    [[nodiscard]] virtual std::size_t labelsPerSheet(const PlaceSources& sources) = 0;
    /// Compiles the template, which can be done once.
    virtual std::unique_ptr<Letters> compile(const PlaceSources& sources, const LetterSettings& settings) = 0;
};

}  // namespace mergeloom::letters
