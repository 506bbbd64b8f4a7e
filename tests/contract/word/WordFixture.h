#pragma once

#include "base/AutomationError.h"
#include "contract/ContractOffices.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// Returns a paragraph of plain text.
inline std::string para(const std::string& text) {
    return "<w:p><w:r><w:t xml:space='preserve'>" + text + "</w:t></w:r></w:p>";
}

/// Return a run of text, and content between the marks of a bookmark.
inline std::string run(const std::string& text) {
    return "<w:r><w:t xml:space='preserve'>" + text + "</w:t></w:r>";
}
inline std::string marked(int id, const std::string& name, const std::string& inside) {
    const std::string number = "w:id=\"" + std::to_string(id) + "\"";
    return "<w:bookmarkStart " + number + " w:name=\"" + name + "\"/>" + inside + "<w:bookmarkEnd " + number +
           "/>";
}

inline std::string cellXml(const std::string& blocks, const std::string& properties = "") {
    return "<w:tc><w:tcPr><w:tcW w:w='2000' w:type='dxa'/>" + properties + "</w:tcPr>" + blocks + "</w:tc>";
}

inline std::string tableXml(const std::vector<std::string>& rows, int columns = 2) {
    std::string xml = "<w:tbl><w:tblPr/><w:tblGrid>";
    for (int column = 0; column < columns; ++column)
        xml += "<w:gridCol w:w='2000'/>";
    xml += "</w:tblGrid>";
    for (const std::string& row : rows)
        xml += "<w:tr>" + row + "</w:tr>";
    return xml + "</w:tbl>";
}

/// Returns a field with its code and its result.
inline std::string fieldXml(const std::string& code, const std::string& result) {
    const auto mark = [](const std::string& type) {
        return "<w:r><w:fldChar w:fldCharType='" + type + "'/></w:r>";
    };
    return mark("begin") + "<w:r><w:instrText xml:space='preserve'>" + code + "</w:instrText></w:r>" +
           mark("separate") + run(result) + mark("end");
}

/// Returns a document file with a header and a footnote, whose bodies are given, in addition to its own.
inline std::string fileWithStories(const std::string& body, const std::string& header,
                                   const std::string& footnote) {
    const std::string space = " xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'";
    const std::string type = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
    const std::string section =
        "<w:sectPr xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'>"
        "<w:headerReference w:type='default' r:id='rId1'/></w:sectPr>";
    opc::Package package = opc::Package::read(wordFile(body + section), "stories.docx");
    const auto add = [&](const std::string& kind, const std::string& name, const std::string& xml) {
        package.addPart(name, type + kind + "+xml", xml);
        package.relationshipsOf(kMainPart).addPart(
            opc::officeRelationshipType(kind, opc::Conformance::Transitional), name);
    };
    add("header", "/word/header1.xml", "<w:hdr" + space + ">" + header + "</w:hdr>");
    add("footnotes", "/word/footnotes.xml",
        "<w:footnotes" + space +
            "><w:footnote w:type='separator' w:id='-1'><w:p/></w:footnote>"
            "<w:footnote w:type='continuationSeparator' w:id='0'><w:p/></w:footnote><w:footnote w:id='1'>" +
            footnote + "</w:footnote></w:footnotes>");
    return packageBytes(package);
}

inline const std::string kFootnoteReference = "<w:r><w:footnoteReference w:id='1'/></w:r>";

/// Returns the number of the error that a call raises; 0 for none.
inline ErrorNumber errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.number();
    }
    return 0;
}

/// Tests the contract of Word's object model for each office.
class WordOffice : public testing::TestWithParam<OfficeKind> {
  protected:
    void add() { take(start(GetParam())->Documents()->Add("")); }
    void open(const std::string& body) { openFile(wordFile(body)); }
    void openFile(const std::string& bytes) {
        files.files["/given.docx"] = bytes;
        take(start(GetParam())->Documents()->Open("/given.docx"));
    }
    word::ApplicationPtr start(OfficeKind kind) {
        application = startContractWord(kind, files);
        return application;
    }

    word::BookmarkPtr bookmark(const std::string& name) { return document->Bookmarks()->Item(name); }
    word::BookmarkPtr mark(const std::string& name, std::int64_t start, std::int64_t end) {
        const word::BookmarkPtr made = document->Bookmarks()->Add(name, *selection->Range());
        made->SetEnd({end});
        made->SetStart({start});
        return made;
    }
    /// Places the caret at the start of a bookmark, or selects the bookmark.
    void goTo(const std::string& name) {
        bookmark(name)->Select();
        selection->Collapse(word::WdCollapseDirection::wdCollapseStart);
    }
    void goToEnd(const std::string& name) {
        bookmark(name)->Select();
        selection->Collapse(word::WdCollapseDirection::wdCollapseEnd);
    }
    word::CellPtr cell(int table, int row, int column) {
        return document->Tables()->Item(table)->Rows()->Item(row)->Cells()->Item(column);
    }
    void goToCell(int table, int row, int column) {
        cell(table, row, column)->Select();
        selection->Collapse(word::WdCollapseDirection::wdCollapseStart);
    }
    std::string at(const std::string& name) {
        const word::BookmarkPtr found = bookmark(name);
        return std::to_string(found->Start().value) + "-" + std::to_string(found->End().value);
    }
    static std::string at(word::Range& range) {
        return std::to_string(range.Start().value) + "-" + std::to_string(range.End().value);
    }
    std::string names(word::Bookmarks& bookmarks) {
        std::string all;
        for (int number = 1; number <= bookmarks.Count(); ++number)
            all += (number == 1 ? "" : " ") + bookmarks.Item(number)->Name();
        return all;
    }
    std::string body() { return shown(*document, files); }

    MemoryFileStore files;
    word::ApplicationPtr application;
    word::DocumentPtr document;
    word::SelectionPtr selection;

  private:
    void take(const word::DocumentPtr& taken) {
        document = taken;
        selection = application->Selection();
    }
};

inline const auto kOffices = testing::ValuesIn(kContractOffices);

}  // namespace mergeloom
