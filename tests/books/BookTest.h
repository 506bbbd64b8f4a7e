#pragma once

#include "base/Text.h"
#include "doubles/ExcelFiles.h"
#include "doubles/MemoryFileStore.h"
#include "office/embedded/books/EmbeddedBooks.h"

#include <gtest/gtest.h>

#include <memory>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

inline RecordControl shown(const std::string& name, const std::string& value) {
    return {.name = name, .displayValue = value, .records = {}};
}
inline RecordControl bound(const std::string& name, const std::string& display, const std::string& stored) {
    return {.name = name, .displayValue = display, .boundValue = stored, .records = {}};
}
inline RecordControl subform(const std::string& name, std::vector<Record> records) {
    return {.name = name, .records = std::move(records)};
}

/// Returns a cell with an inline text.
inline std::string textCell(const std::string& address, const std::string& text,
                            const std::string& more = "") {
    return "<c r=\"" + address + "\"" + more + " t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}
inline std::string formulaCell(const std::string& address, const std::string& formula) {
    return "<c r=\"" + address + "\"><f>" + formula + "</f><v>1</v></c>";
}
inline std::string sheetRow(int number, const std::string& cells, const std::string& more = "") {
    return "<row r=\"" + std::to_string(number) + "\"" + more + ">" + cells + "</row>";
}

/// Tests that fill a workbook in memory.
class BookTest : public testing::Test {
  protected:
    void takes(const std::string& name, const letters::PlaceSource& source) {
        sources.places[foldCase(name)] = source;
    }
    void lists(const std::string& name, const letters::ControlPath& path) {
        sources.tables[foldCase(name)] = path;
    }
    /// Names cells of the first sheet.
    void names(const std::string& name, const std::string& cells) {
        definedNames += "<definedName name=\"" + name + "\">Sheet1!" + cells + "</definedName>";
    }
    [[nodiscard]] std::string allNames() const { return "<definedNames>" + definedNames + "</definedNames>"; }

    std::unique_ptr<letters::Letters> compiled(const std::string& templateFile) {
        files.files["/template.xlsx"] = templateFile;
        template_ = embedded::openBookTemplate(files, "/template.xlsx");
        return template_->compile(sources, settings);
    }
    std::string filled(const std::string& templateFile, const std::vector<Record>& records) {
        const std::unique_ptr<letters::Letters> letters = compiled(templateFile);
        files.save("/book.xlsx", [&](ByteSink& sink) { letters->write(records, sink); });
        return files.files["/book.xlsx"];
    }
    static std::string partOf(const std::string& file, const std::string& partName) {
        return opc::Package::read(file, "book.xlsx").readPart(partName);
    }
    /// Returns the rows of a sheet without the tags of texts, such as "<r 1><A1 s0>text".
    static std::string shownRows(const std::string& file, std::size_t sheet = 1) {
        const std::string xml = partOf(file, sheetPart(sheet));
        const std::size_t begin = xml.find("<row");
        std::string rows = xml.substr(begin, xml.find("</sheetData>") - begin);
        for (const auto& [pattern, replacement] : std::vector<std::pair<const char*, const char*>>{
                 {"<is><t[^>]*>|</t></is>|</c>|</row>|</f>|</v>", ""},
                 {" t=\"inlineStr\"", ""},
                 {"<row r=\"(\\d+)\"", "\n<$1"},
                 {"<c r=\"(\\w+)\"", "<$1"},
                 {"<f>", "="},
                 {"<v>", "#"}}) {
            rows = std::regex_replace(rows, std::regex(pattern), replacement);
        }
        return rows.substr(1);
    }

    MemoryFileStore files;
    letters::PlaceSources sources;
    letters::LetterSettings settings;
    std::string definedNames;

  private:
    std::unique_ptr<letters::LetterTemplate> template_;
};

}  // namespace mergeloom
