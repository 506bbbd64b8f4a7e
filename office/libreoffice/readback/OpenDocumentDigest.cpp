#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/readback/StoredContent.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// The elements of text whose content belongs to the document; the others are fields and indexes, whose text
/// each office generates again.
constexpr std::string_view kPlain[] = {
    "text:p",
    "text:h",
    "text:span",
    "text:a",
    "text:list",
    "text:list-item",
    "text:list-header",
    "text:section",
    "text:meta",
    "text:ruby",
    "text:ruby-base",
    // Also a content control of plain text.
    "text:text-input",
};

constexpr std::string_view kFormText = "vnd.oasis.opendocument.field.FORMTEXT";

class OpenDocumentReader {
  public:
    explicit OpenDocumentReader(ContentDigest& digest) : story_(digest) {}

    void read(const pugi::xml_node& parent) {
        for (const pugi::xml_node child : parent.children()) {
            if (child.type() == pugi::node_pcdata) {
                if (hidden_ == 0) story_.add(child.value());
            } else {
                readElement(child);
            }
        }
    }
    [[nodiscard]] const std::string& text() const { return story_.text(); }

  private:
    void readElement(const pugi::xml_node& element) {
        const std::string_view name = element.name();
        const std::string place = element.attribute("text:name").value();
        if (name == "text:bookmark") return story_.addEmptyPlace(place);
        if (name == "text:bookmark-start") return story_.beginPlace(place, place);
        if (name == "text:bookmark-end") return story_.endPlace(place);
        if (name == "field:fieldmark-start") return beginField(element.attribute("field:type").value());
        if (name == "field:fieldmark-end") return endField();
        if (name == "text:note") return readApart(element.child("text:note-body"));
        if (name.starts_with("draw:")) return readApart(element);
        if (isRead(name)) read(element);
    }
    static bool isRead(std::string_view name) {
        if (name.starts_with("text:")) return std::ranges::find(kPlain, name) != std::end(kPlain);
        return !name.starts_with("office:") && name != "table:covered-table-cell";
    }
    void readApart(const pugi::xml_node& element) const { OpenDocumentReader(story_.digest()).read(element); }
    void beginField(std::string_view type) {
        if (hidden_ > 0 || type != kFormText) ++hidden_;
        ++fields_;
    }
    void endField() {
        if (fields_ == 0) return;
        --fields_;
        if (hidden_ > 0) --hidden_;
    }

    DigestedStory story_;
    int fields_ = 0;
    int hidden_ = 0;  ///< open fields from the first one whose text is ignored
};

/// Joins equal texts that follow one another. LibreOffice does so only in part, so that the same sheet may be
/// stored in several ways.
class Runs {
  public:
    void add(int at, int count, const std::string& text) {
        const bool continues = end_ == at && text == text_;
        if (!continues) {
            flush();
            start_ = at;
            text_ = text;
        }
        end_ = at + count;
    }
    /// Returns the runs so far, each with its position and length.
    std::string take() {
        flush();
        return std::exchange(runs_, {});
    }

  private:
    void flush() {
        if (!text_.empty())
            runs_ += std::to_string(start_ + 1) + "x" + std::to_string(end_ - start_) + ":" + text_ + ";";
        text_.clear();
    }

    std::string runs_;
    std::string text_;
    int start_ = 0;
    int end_ = 0;
};

/// Reads the texts of cells and the names of cells.
class CellReader {
  public:
    explicit CellReader(ContentDigest& digest) : digest_(digest), story_(digest) {}

    void read(const pugi::xml_node& spreadsheet) {
        for (const pugi::xml_node sheet : spreadsheet.children("table:table")) {
            row_ = 0;
            readRows(sheet);
            const std::string rows = rows_.take();
            if (!rows.empty()) story_.add(sheet.attribute("table:name").value() + ("!" + rows));
            readNames(sheet);
        }
        readNames(spreadsheet);
    }
    [[nodiscard]] const std::string& text() const { return story_.text(); }

  private:
    void readNames(const pugi::xml_node& parent) {
        for (const pugi::xml_node name :
             parent.child("table:named-expressions").children("table:named-range"))
            digest_.places[name.attribute("table:name").value()] =
                cellsUnder(name.attribute("table:cell-range-address").value());
    }
    /// Returns the address of a single cell without the range that 25.2 stores for it: names that it reads
    /// from HTML become ranges from a cell to the same cell, "$Sheet.$A$1:.$A$1", and are read again as
    /// cells.
    static std::string cellsUnder(const std::string& address) {
        const std::size_t range = address.rfind(":.");
        if (range == std::string::npos) return address;
        const std::string first = address.substr(0, range);
        return first.ends_with(address.substr(range + 1)) ? first : address;
    }
    void readRows(const pugi::xml_node& parent) {
        for (const pugi::xml_node child : parent.children()) {
            const std::string_view name = child.name();
            if (name == "table:table-row") {
                const int count = child.attribute("table:number-rows-repeated").as_int(1);
                rows_.add(row_, count, cellsOf(child));
                row_ += count;
            } else if (name == "table:table-header-rows" || name == "table:table-row-group" ||
                       name == "table:table-rows") {
                readRows(child);
            }
        }
    }
    static std::string cellsOf(const pugi::xml_node& row) {
        Runs cells;
        int column = 0;
        for (const pugi::xml_node cell : row.children()) {
            const int count = cell.attribute("table:number-columns-repeated").as_int(1);
            cells.add(column, count, textOf(cell));
            column += count;
        }
        return cells.take();
    }
    /// Returns an empty text for a cell without a text of its own.
    static std::string textOf(const pugi::xml_node& cell) {
        const bool isText = std::string_view(cell.attribute("office:value-type").value()) == "string";
        const bool counts =
            isText && std::string_view(cell.name()) == "table:table-cell" && !cell.attribute("table:formula");
        if (!counts) return {};
        ContentDigest unused;
        OpenDocumentReader text(unused);
        text.read(cell);
        return text.text();
    }

    ContentDigest& digest_;
    DigestedStory story_;
    Runs rows_;
    int row_ = 0;
};

}  // namespace

ContentDigest digestOfText(const StoredContent& stored) {
    ContentDigest digest;
    OpenDocumentReader body(digest);
    body.read(stored.content->root().child("office:body").child("office:text"));
    OpenDocumentReader(digest).read(stored.styles->root().child("office:master-styles"));
    digest.text = body.text();
    return digest;
}

ContentDigest digestOfCells(const StoredContent& stored) {
    ContentDigest digest;
    CellReader reader(digest);
    reader.read(stored.content->root().child("office:body").child("office:spreadsheet"));
    digest.text = reader.text();
    return digest;
}

}  // namespace mergeloom::libreoffice
