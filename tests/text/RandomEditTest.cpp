#include "text/StoryTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string_view>

namespace mergeloom::embedded {
namespace {

using std::string;

string paragraph(const string& inside) {
    return "<w:p>" + inside + "</w:p>";
}
string run(const string& text) {
    return "<w:r><w:rPr><w:b/></w:rPr><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}
string mark(const string& name, int id, const string& inside) {
    const string number = " w:id=\"" + std::to_string(id) + "\"";
    return "<w:bookmarkStart" + number + " w:name=\"" + name + "\"/>" + inside + "<w:bookmarkEnd" + number +
           "/>";
}
string cell(const string& inside) {
    return "<w:tc><w:tcPr/>" + inside + "</w:tc>";
}
string row(const string& inside) {
    return "<w:tr><w:trPr/>" + inside + "</w:tr>";
}
string table(const string& inside) {
    return "<w:tbl><w:tblPr/><w:tblGrid/>" + inside + "</w:tbl>";
}
string inside(const string& tag, const string& content) {
    return "<w:" + tag + ">" + content + "</w:" + tag.substr(0, tag.find(' ')) + ">";
}
string control(const string& content) {
    return inside("sdt", "<w:sdtPr/>" + inside("sdtContent", content));
}
string fieldCharacter(const string& type) {
    return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
}
string field(const string& code, const string& result) {
    return fieldCharacter("begin") + "<w:r><w:instrText>" + code + "</w:instrText></w:r>" +
           fieldCharacter("separate") + result + fieldCharacter("end");
}
string textBox(const string& content, const string& copy) {
    return "<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\"><w:drawing><wp:anchor><wps:txbx>" +
           inside("txbxContent", content) +
           "</wps:txbx></wp:anchor></w:drawing></mc:Choice><mc:Fallback><w:pict><v:textbox>" +
           inside("txbxContent", copy) + "</v:textbox></w:pict></mc:Fallback></mc:AlternateContent></w:r>";
}

/// Returns bodies with all parts of a story, arranged so that edits are most difficult.
std::vector<string> bodies() {
    const string picture = "<w:r><w:drawing><wp:inline/></w:drawing></w:r>";
    const string nested = table(
        row(cell(table(row(cell(paragraph(run("n"))) + cell(paragraph("")))) + paragraph(run("after"))) +
            cell(paragraph(mark("InCell", 1, run("c"))))) +
        row(cell(paragraph("")) + cell(paragraph(run("x")) + paragraph(run("y")))));
    return {
        paragraph("<w:pPr><w:jc/><w:rPr><w:i/></w:rPr></w:pPr>" + run("ab") +
                  mark("A", 1, run("c\U0001F600d") + mark("B", 2, "")) +
                  "<w:r><w:tab/><w:t>e</w:t><w:br/></w:r>") +
            paragraph("") + paragraph(run("last")) + "<w:sectPr/>",
        paragraph(run("one")) + nested + paragraph(mark("After", 3, run("two")) + picture) + "<w:sectPr/>",
        table(row(cell(paragraph(run("1"))) + cell(paragraph(run("2"))) + cell(paragraph(run("3")))) +
              row(cell(paragraph("")) + cell(paragraph(run("5"))) + cell(paragraph(run("6"))))) +
            paragraph(""),
        paragraph(run("a") + inside("hyperlink w:anchor=\"A\"", run("link") + mark("A", 1, run("ed"))) +
                  inside("ins w:id=\"7\"", run("new")) +
                  inside("del w:id=\"8\"", "<w:r><w:delText>old</w:delText></w:r>") + run("z")) +
            paragraph(inside("smartTag", run("s") + inside("hyperlink", run("t")))) + paragraph(run("end")),
        paragraph(run("a") + control(run("inline") + control(run("deep"))) + run("b")) +
            control(paragraph(run("block")) + paragraph(mark("A", 1, run("two")))) +
            table(control(row(cell(paragraph(run("r"))))) + row(control(cell(paragraph(run("c")))))) +
            paragraph(""),
        paragraph(run("a") + inside("fldSimple w:instr=\" DATE \"", run("today") + mark("A", 1, run("!"))) +
                  field(" IF ", run("x") + field("PAGE", run("1")) + run("y")) + run("b")) +
            paragraph(fieldCharacter("begin") + "<w:r><w:instrText>TOC</w:instrText></w:r>" +
                      fieldCharacter("separate") + run("entry")) +
            paragraph(mark("B", 2, run("entry two")) + fieldCharacter("end")) + paragraph(run("end")),
        paragraph(run("a") +
                  textBox(paragraph(mark("Box", 1, run("box"))), paragraph(mark("Box", 1, run("box")))) +
                  run("b")) +
            table(row(cell(paragraph(textBox(paragraph(mark("Boxed", 2, run("q"))), paragraph("")))))) +
            "<w:bookmarkStart w:id=\"3\" w:name=\"Blocks\"/>" + paragraph(run("c")) +
            "<w:bookmarkEnd w:id=\"3\"/>" + paragraph(mark("_Hidden", 4, run("d"))),
        paragraph(run("a") + "<w:bookmarkStart w:id=\"1\" w:name=\"Wide\"/>" + run("b")) +
            table(row(cell(paragraph(run("c"))) + "<w:bookmarkStart w:id=\"2\" w:name=\"Row\"/>" +
                      cell("<w:bookmarkEnd w:id=\"1\"/>" + paragraph(run("d")))) +
                  "<w:bookmarkEnd w:id=\"2\"/>" + row(cell(paragraph(run("e"))) + cell(paragraph("")))) +
            paragraph("<w:pPr><w:sectPr/></w:pPr>" + run("f")) + paragraph("") +
            table(row(cell(paragraph("")))),
    };
}

/// Returns the characters of a story: its text in UTF-16, and for every other item as many units of its kind.
std::u16string charactersOf(const Story& story) {
    std::u16string units;
    for (const Item* item = story.items().first(); item; item = ItemTree::next(item)) {
        const bool isText = item->kind == ItemKind::Text || item->kind == ItemKind::FieldCode;
        const string text = isText ? item->node.child_value() : "";
        for (std::string_view rest = text; !rest.empty();) {
            const char32_t point = takeCodePoint(rest);
            if (point > 0xFFFF) units += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10U));
            units += static_cast<char16_t>(point > 0xFFFF ? 0xDC00 + (point & 0x3FFU) : point);
        }
        if (!isText) units.append(item->length, static_cast<char16_t>(0xE000 + static_cast<int>(item->kind)));
    }
    return units;
}

constexpr char16_t kMark = 0xE000 + static_cast<int>(ItemKind::ParagraphMark);
constexpr char16_t kCharacter = 0xE000 + static_cast<int>(ItemKind::Character);

using Places = std::map<string, std::pair<std::int64_t, std::int64_t>>;

Places placesOf(const Story& story) {
    Places places;
    for (const Item* item = story.items().first(); item; item = ItemTree::next(item)) {
        if (item->kind == ItemKind::BookmarkStart)
            places[item->bookmark->name] = {startOf(*item->bookmark).value, endOf(*item->bookmark).value};
    }
    return places;
}

/// Returns the violations of the standard's structure below a node.
string faultsIn(const opc::WordNames& names, pugi::xml_node node, std::set<string>& openIds) {
    string faults;
    const opc::WordTag tag = names.tagOf(node);
    pugi::xml_node last;
    for (const pugi::xml_node child : node.children()) {
        const opc::WordTag inner = names.tagOf(child);
        const string id = names.value(child, "id");
        // A fallback repeats the ids of the content that it replaces.
        if (std::string_view(child.name()) == "mc:Fallback") continue;
        if (inner == opc::WordTag::BookmarkStart && !openIds.insert(id).second) faults += " id twice";
        if (inner == opc::WordTag::BookmarkEnd && openIds.count(id) == 0) faults += " end without start";
        if (inner == opc::WordTag::BookmarkStart || inner == opc::WordTag::BookmarkEnd) continue;
        const bool isProperties = inner == opc::WordTag::ParagraphProperties ||
                                  (inner == opc::WordTag::RunProperties && tag == opc::WordTag::Run);
        if (isProperties && child.previous_sibling()) faults += " properties not first";
        if (inner == opc::WordTag::Paragraph &&
            names.ancestor(child, opc::WordTag::TextBoxContent) ==
                names.ancestor(names.ancestor(child, opc::WordTag::Paragraph),
                               opc::WordTag::TextBoxContent) &&
            names.ancestor(child, opc::WordTag::Paragraph))
            faults += " paragraph in paragraph";
        if (inner == opc::WordTag::Run && !names.ancestor(child, opc::WordTag::Paragraph))
            faults += " run outside";
        if (inner == opc::WordTag::TextElement && tag != opc::WordTag::Run) faults += " text outside a run";
        const std::string_view text = child.child_value();
        const bool blanks = !text.empty() && (text.front() == ' ' || text.back() == ' ');
        if (inner == opc::WordTag::TextElement && blanks && !child.attribute("xml:space"))
            faults += " blank lost";
        if (inner == opc::WordTag::SectionProperties && child.next_sibling()) faults += " section not last";
        faults += faultsIn(names, child, openIds);
        last = child;
    }
    const opc::WordTag lastTag = names.tagOf(last);
    if (tag == opc::WordTag::CellElement && lastTag != opc::WordTag::Paragraph &&
        lastTag != opc::WordTag::ContentControl)
        faults += " cell without a last paragraph";
    if (tag == opc::WordTag::Row && lastTag != opc::WordTag::CellElement &&
        lastTag != opc::WordTag::ContentControl)
        faults += " row without cells";
    return faults;
}

/// Makes random edits of a part, and computes the expected result of each.
class RandomEdits {
  public:
    RandomEdits(const string& body, unsigned seed) : part_(documentXml(body)), random_(seed) {}

    /// Makes one edit. Returns the faults after it; empty for none.
    string step() {
        OpenStory& chosen = part_.stories[number(part_.stories.size())];
        OpenStory& story = isInPart(chosen) ? chosen : part_.body();
        characters_ = charactersOf(story.story);
        places_ = placesOf(story.story);
        const string before = state();
        part_.journal.start();
        string fault;
        const string error = errorOf([&] { edit(story); });
        if (!error.empty()) ++refused_;
        const bool mayBeHalfDone = edit_.starts_with("insert") || edit_.starts_with("size");
        if (!error.empty() && !mayBeHalfDone && state() != before) return edit_ + error + ": not whole";
        fault = check() + checkFinder(story);
        if (error.empty() && fault.empty() && charactersOf(story.story) != characters_)
            fault = "wrong characters";
        if (error.empty() && fault.empty() && placesOf(story.story) != places_) fault = "wrong places";
        if (fault.empty() && (!error.empty() || number(3) == 0)) {
            part_.journal.undo();
            if (state() != before) fault = "not undone:\n" + before + "\n" + state();
        }
        return fault.empty() ? fault
                             : edit_ + error + ": " + fault + "\nbefore: " + before + "\nafter: " + state();
    }

    [[nodiscard]] int refused() const { return refused_; }

  private:
    std::size_t number(std::size_t count) { return random_() % count; }
    CharacterPosition place(const Story& story) {
        return {static_cast<std::int64_t>(number(static_cast<std::size_t>(story.length().value) + 1))};
    }

    /// Returns false for an erased text box.
    bool isInPart(OpenStory& story) { return isInside(story.story.root(), part_.part->root()); }

    void edit(OpenStory& story) {
        CharacterPosition start = place(story.story);
        CharacterPosition end =
            number(3) == 0 ? place(story.story) : start + CharacterCount{static_cast<int>(number(4))};
        if (end < start) std::swap(start, end);
        end = std::min(end, CharacterPosition{story.story.length().value});
        const auto places = std::to_string(start.value) + "-" + std::to_string(end.value);
        BookmarkRecord* record = part_.table.find(kNames[number(kNames.size())]);
        switch (number(8)) {
            case 0:
            case 1:
                return insert(story, start, kTexts[number(kTexts.size())]);
            case 2:
                return erase(story, start, end);
            case 3: {
                const string& name = kNames[number(kNames.size())];
                edit_ = "add " + name + " " + places;
                if (part_.table.find(name)) return;
                places_[name] = {start.value, end.value};
                story.bookmarks.check(start, end);
                story.bookmarks.add(name, ++part_.lastId, start, end);
                return;
            }
            case 4:
                if (!record || record->story != &story.story) return;
                edit_ = "remove " + record->name;
                places_.erase(record->name);
                return story.bookmarks.remove(*record);
            case 5:
                edit_ = "size of " + places;
                return story.fonts.setSize(start, end, 24);
            case 6:
                return insertTable(story, start);
            default:
                if (record && record->story == &story.story) move(story, *record, start);
        }
    }

    void insert(OpenStory& story, CharacterPosition at, const string& text) {
        edit_ = "insert '" + text + "' at " + std::to_string(at.value);
        std::u16string units;
        for (const char character : text)
            units += character == '\r'   ? kMark
                     : character == '\t' ? kCharacter
                                         : static_cast<char16_t>(character);
        const auto count = static_cast<std::int64_t>(units.size());
        characters_.insert(static_cast<std::size_t>(at.value), units);
        for (auto& [name, place] : places_) {
            if (place.first > at.value) place.first += count;
            if (place.second > at.value) place.second += count;
        }
        EXPECT_EQ(story.editor.insertText(at, text).value, count);
    }

    void insertTable(OpenStory& story, CharacterPosition at) {
        edit_ = "insert a table at " + std::to_string(at.value);
        Item* row =
            story.tables.insertTable(at, {.rows = 1, .columns = 2, .width = 100, .hasGridStyle = true});
        story.tables.appendRow(row);
        // The tests of tables check its position.
        characters_ = charactersOf(story.story);
        places_ = placesOf(story.story);
    }

    void erase(OpenStory& story, CharacterPosition start, CharacterPosition end) {
        edit_ = "erase " + std::to_string(start.value) + "-" + std::to_string(end.value);
        const auto length = story.story.length().value;
        story.eraser.erase(start, end);
        // The mark of the story or of the cell may remain.
        const std::int64_t count = length - story.story.length().value;
        const std::int64_t kept = (end - start).value - count;
        EXPECT_TRUE(kept == 0 || kept == 1) << edit_;
        characters_.erase(static_cast<std::size_t>(start.value), static_cast<std::size_t>(count));
        const std::int64_t last = start.value + count;
        std::erase_if(places_, [&](const auto& named) {
            const auto [first, second] = named.second;
            const bool emptyAtAnEnd = first == second && (first == start.value || first == last);
            return count > 0 && first >= start.value && second <= last && !emptyAtAnEnd;
        });
        const auto shifted = [&](std::int64_t place) {
            return place <= start.value ? place : std::max(start.value, place - count);
        };
        for (auto& [name, place] : places_)
            place = {shifted(place.first), shifted(place.second)};
    }

    void move(OpenStory& story, BookmarkRecord& record, CharacterPosition to) {
        auto& [start, end] = places_[record.name];
        if (number(2) == 0) {
            edit_ = "start of " + record.name + " to " + std::to_string(to.value);
            start = to.value;
            end = std::max(start, end);
            story.bookmarks.moveStart(record, to);
        } else {
            edit_ = "end of " + record.name + " to " + std::to_string(to.value);
            end = to.value;
            start = std::min(start, end);
            story.bookmarks.moveEnd(record, to);
        }
    }

    /// Compares the items with those that a reader finds in the XML, and checks the XML.
    string check() {
        OpenPart again(part_.part->toXml());
        std::set<string> openIds;
        string fault = faultsIn(again.names, again.part->root(), openIds);
        std::set<string> live;
        for (OpenStory& story : part_.stories) {
            if (isInPart(story)) live.insert(itemsOf(story.story));
        }
        std::set<string> read;
        for (OpenStory& story : again.stories)
            read.insert(itemsOf(story.story));
        if (live != read) {
            fault += " read again:";
            for (const string& items : read)
                fault += "\n" + items;
        }
        std::size_t marks = 0;
        for (OpenStory& story : again.stories)
            marks += placesOf(story.story).size();
        std::size_t listed = 0;
        for (const string& name : kNames)
            listed += part_.table.find(name) ? 1 : 0;
        if (marks != listed) fault += " listed " + std::to_string(listed) + " of " + std::to_string(marks);
        return fault;
    }

    /// Compares the bookmarks of a range with those that overlap it, or that touch it if one of both is
    /// empty.
    string checkFinder(OpenStory& story) {
        CharacterPosition start = place(story.story);
        CharacterPosition end = number(2) == 0 ? start : place(story.story);
        if (end < start) std::swap(start, end);
        std::set<string> expected;
        for (const auto& [name, at] : placesOf(story.story)) {
            const bool isCaret = start == end;
            const bool isEmpty = at.first == at.second;
            const bool touches = isCaret   ? at.first <= start.value && start.value <= at.second
                                 : isEmpty ? start.value <= at.first && at.first < end.value
                                           : at.first < end.value && start.value < at.second;
            if (touches) expected.insert(name);
        }
        std::set<string> found;
        std::int64_t last = 0;
        for (const BookmarkRecord* record : story.bookmarks.in(start, end)) {
            found.insert(record->name);
            if (startOf(*record).value < last) return " found out of order";
            last = startOf(*record).value;
        }
        return found == expected ? "" : " wrong bookmarks in " + std::to_string(start.value);
    }

    string state() {
        string text = part_.bodyXml();
        for (OpenStory& story : part_.stories)
            text += "\n" + itemsOf(story.story);
        return text;
    }

    inline static const std::vector<string> kNames = {"A",      "B",       "InCell", "After", "Box", "Boxed",
                                                      "Blocks", "_Hidden", "Wide",   "Row",   "New", "Newer"};
    inline static const std::vector<string> kTexts = {"x", " y ", "\r", "u\rv", "\t", "\t\r"};

    OpenPart part_;
    std::mt19937 random_;
    std::u16string characters_;
    Places places_;
    string edit_;
    int refused_ = 0;
};

TEST(RandomEdits, keepItemsAndElementsTheSameAndCanBeTakenBack) {
    constexpr unsigned kRounds = 20;
    constexpr int kSteps = 40;
    for (const string& body : bodies()) {
        int refused = 0;
        string fault;
        for (unsigned seed = 0; seed < kRounds && fault.empty(); ++seed) {
            RandomEdits edits(body, seed);
            for (int i = 0; i < kSteps && fault.empty(); ++i)
                fault = edits.step();
            refused += edits.refused();
        }
        EXPECT_TRUE(fault.empty()) << fault;
        EXPECT_LT(refused, kRounds * kSteps / 2) << body;
    }
}

}  // namespace
}  // namespace mergeloom::embedded
