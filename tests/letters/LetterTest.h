#pragma once

#include "base/Text.h"
#include "doubles/WordFiles.h"
#include "office/embedded/letters/EmbeddedLetters.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

inline std::string inRun(const std::string& content, const std::string& properties = "") {
    return "<w:r>" + (properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>") + content + "</w:r>";
}
inline std::string run(const std::string& text, const std::string& properties = "") {
    return inRun("<w:t xml:space=\"preserve\">" + text + "</w:t>", properties);
}
inline std::string paragraph(const std::string& content) {
    return "<w:p>" + content + "</w:p>";
}
inline std::string cell(const std::string& content) {
    return "<w:tc>" + paragraph(content) + "</w:tc>";
}
inline std::string row(const std::string& cells) {
    return "<w:tr>" + cells + "</w:tr>";
}

/// Returns a control of a record with only a display value.
inline RecordControl shownControl(const std::string& name, const std::string& value) {
    return {.name = name, .displayValue = value, .records = {}};
}
inline RecordControl subform(const std::string& name, std::vector<Record> records) {
    return {.name = name, .records = std::move(records)};
}

/// Tests that fill a template in memory.
class LetterTest : public testing::Test {
  protected:
    /// Marks content as a bookmark. The ids are in the order in which bookmarks are made.
    std::string marked(const std::string& name, const std::string& content) {
        const std::string id = "w:id=\"" + std::to_string(++bookmarks_) + "\"";
        return "<w:bookmarkStart " + id + " w:name=\"" + name + "\"/>" + content + "<w:bookmarkEnd " + id +
               "/>";
    }
    /// Returns a place that shows its own name.
    std::string place(const std::string& name, const std::string& properties = "") {
        return marked(name, run(name, properties));
    }

    void takes(const std::string& bookmark, const letters::PlaceSource& source) {
        sources.places[foldCase(bookmark)] = source;
    }
    void lists(const std::string& bookmark, const letters::ControlPath& path) {
        sources.tables[foldCase(bookmark)] = path;
    }

    std::unique_ptr<letters::Letters> compiled(const std::string& templateFile) {
        files.files["/template.docx"] = templateFile;
        template_ = embedded::openLetterTemplate(files, "/template.docx");
        settings.findPicture = [this](const std::string& image) {
            return files.fileExists(image) ? image : "";
        };
        return template_->compile(sources, settings);
    }
    std::string letterOf(letters::Letters& letters, const std::vector<Record>& records) {
        files.save("/letter.docx", [&](ByteSink& sink) { letters.write(records, sink); });
        return files.files["/letter.docx"];
    }
    /// Returns the letter of a record in the notation of `shownBody`.
    std::string filled(const std::string& body, const Record& record) {
        return shownBody(letterOf(*compiled(wordFile(body)), {record}));
    }
    static std::string bodyXml(const std::string& file) {
        return opc::Package::read(file, "letter.docx").readPart(kMainPart);
    }

    MemoryFileStore files;
    letters::PlaceSources sources;
    letters::LetterSettings settings;

  private:
    std::unique_ptr<letters::LetterTemplate> template_;
    int bookmarks_ = 0;
};

}  // namespace mergeloom
