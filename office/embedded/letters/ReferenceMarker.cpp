#include "office/embedded/letters/ReferenceMarker.h"

#include "base/Text.h"
#include "office/embedded/letters/Token.h"
#include "office/model/word/FieldCode.h"
#include "office/opc/WordNames.h"

#include <algorithm>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

namespace {

using letters::LetterUse;
using opc::WordTag;

/// The parts of a field.
struct Field {
    std::string code{};
    std::vector<pugi::xml_node> frame{};    ///< the marks and the code, or the element of a simple field
    std::vector<pugi::xml_node> results{};  ///< the runs of the result
    pugi::xml_node separator{};             ///< none in a simple field
    bool isPlain = true;                    ///< false if another field is inside of it, or if runs are mixed
};

/// Returns true if the result is the text of the bookmark, and not a number or a position.
bool showsText(const std::vector<std::string>& code) {
    for (std::size_t word = 2; word < code.size(); ++word) {
        if (equalsIgnoringAsciiCase(code[word], "\\h")) continue;
        const bool isFormat = code[word] == "\\*" && word + 1 < code.size();
        if (!isFormat) return false;
        const std::string& format = code[++word];
        const bool keepsText =
            equalsIgnoringAsciiCase(format, "MERGEFORMAT") || equalsIgnoringAsciiCase(format, "CHARFORMAT");
        if (!keepsText) return false;
    }
    return true;
}

class ReferenceMarker {
  public:
    ReferenceMarker(const opc::XmlPart& part, MarkedPlaces& marked, LetterUse use)
        : part_(part), names_(part.root()), marked_(marked), use_(use) {}

    bool mark() {
        visit(part_.root());
        for (const Field& field : fields_)
            mark(field);
        return hasReferences_;
    }

  private:
    // Recursion is safe: parts that are nested too deeply are not parsed.
    void visit(pugi::xml_node node) {
        for (const pugi::xml_node child : node.children()) {
            const WordTag tag = names_.tagOf(child);
            if (tag == WordTag::SimpleField) addSimple(child);
            if (tag == WordTag::Paragraph) addFieldsOf(child);
            visit(child);
        }
    }

    void addSimple(pugi::xml_node element) {
        Field field{.code = names_.value(element, "instr"), .frame = {element}};
        for (const pugi::xml_node child : element.children()) {
            const bool isRun = names_.tagOf(child) == WordTag::Run;
            if (isRun) field.results.push_back(child);
            field.isPlain = field.isPlain && isRun && isTextRun(child);
        }
        fields_.push_back(std::move(field));
    }

    /// Adds the fields that begin and end in a paragraph.
    void addFieldsOf(pugi::xml_node paragraph) {
        open_.clear();
        visitRuns(paragraph);
    }

    void visitRuns(pugi::xml_node parent) {
        for (const pugi::xml_node child : parent.children()) {
            const WordTag tag = names_.tagOf(child);
            if (tag == WordTag::Run) {
                takeRun(child);
            } else if (tag != WordTag::Paragraph) {
                visitRuns(child);
            }
        }
    }

    void takeRun(pugi::xml_node run) {
        bool hasMarks = false;
        for (const pugi::xml_node child : run.children()) {
            const WordTag tag = names_.tagOf(child);
            hasMarks = hasMarks || tag == WordTag::FieldCharacter || tag == WordTag::InstructionText;
            if (tag == WordTag::FieldCharacter) takeMark(child, names_.value(child, "fldCharType"));
            if (tag == WordTag::InstructionText && !open_.empty()) {
                open_.back().code += child.text().get();
                open_.back().frame.push_back(child);
            }
        }
        if (open_.empty()) return;
        Field& field = open_.back();
        if (hasMarks) {
            field.isPlain = field.isPlain && !run.child(names_.element("t").c_str());
        } else if (field.separator) {
            field.isPlain = field.isPlain && isTextRun(run);
            field.results.push_back(run);
        }
    }

    void takeMark(pugi::xml_node mark, std::string_view type) {
        if (type == "begin") {
            for (Field& around : open_)
                around.isPlain = false;
            open_.push_back({.frame = {mark}});
        } else if (!open_.empty()) {
            open_.back().frame.push_back(mark);
            if (type == "separate") open_.back().separator = mark;
            if (type != "end") return;
            fields_.push_back(std::move(open_.back()));
            open_.pop_back();
        }
    }

    /// Returns true for a run with nothing but text, which is no place, and its formatting.
    [[nodiscard]] bool isTextRun(pugi::xml_node run) const {
        return std::ranges::all_of(run.children(), [this](pugi::xml_node child) {
            const WordTag tag = names_.tagOf(child);
            if (tag == WordTag::TextElement) return !Token::of(child.text().get());
            return tag == WordTag::RunProperties || tag == WordTag::Tab || tag == WordTag::Break ||
                   child.type() != pugi::node_element;
        });
    }

    void mark(const Field& field) {
        const std::vector<std::string> code = word::piecesOfCode(field.code);
        if (code.size() < 2) return;
        const std::string folded = foldCase(code[1]);
        const auto place = std::ranges::find_if(
            marked_.places, [&](const MarkedPlace& there) { return foldCase(there.name) == folded; });
        if (place == marked_.places.end()) return;
        if (equalsIgnoringAsciiCase(code[0], "REF")) markText(field, code, MarkedPlace(*place));
        if (equalsIgnoringAsciiCase(code[0], "PAGEREF")) markPage(field, code[1]);
    }

    void markText(const Field& field, const std::vector<std::string>& code, MarkedPlace place) {
        const bool hasResult = field.separator || !field.results.empty();
        if (!hasResult || !field.isPlain || place.isPicture || !showsText(code)) {
            marked_.refusals.push_back("The field REF " + code[1] +
                                       " is not filled: put a further place there, or let Word update it.");
            return;
        }
        hasReferences_ = true;
        place.name.clear();
        place.isReference = true;
        const Token token{TokenKind::Value, marked_.places.size()};
        marked_.places.push_back(std::move(place));
        const pugi::xml_node result = resultOf(field);
        while (const pugi::xml_node content = lastContentOf(result))
            part_.detach(content);
        pugi::xml_node(result).append_child(names_.element("t").c_str()).text().set(token.text().c_str());
        for (const pugi::xml_node other : field.results)
            if (other != result) part_.detach(other);
        if (use_ == LetterUse::OneForAll) unwrap(field);
    }

    void markPage(const Field& field, const std::string& name) {
        hasReferences_ = true;
        if (use_ == LetterUse::OneForAll) {
            marked_.refusals.push_back("The field PAGEREF " + name + " keeps the page of the template.");
            return unwrap(field);
        }
        const std::string dirty = names_.attribute("dirty");
        pugi::xml_node first = field.frame.front();
        if (!first.attribute(dirty.c_str())) first.append_attribute(dirty.c_str());
        first.attribute(dirty.c_str()).set_value("true");
    }

    /// Returns the run of the result; a new one if the field has none yet.
    [[nodiscard]] pugi::xml_node resultOf(const Field& field) const {
        if (!field.results.empty()) return field.results.front();
        const pugi::xml_node before = field.separator.parent();
        pugi::xml_node run = before.parent().insert_child_after(before.name(), before);
        const pugi::xml_node properties = names_.child(before, WordTag::RunProperties);
        if (properties) run.append_copy(properties);
        return run;
    }

    [[nodiscard]] pugi::xml_node lastContentOf(pugi::xml_node run) const {
        const pugi::xml_node last = run.last_child();
        return names_.tagOf(last) == WordTag::RunProperties ? pugi::xml_node() : last;
    }

    /// Leaves only the result of a field.
    void unwrap(const Field& field) const {
        for (const pugi::xml_node node : field.frame) {
            if (names_.tagOf(node) == WordTag::SimpleField) {
                for (const pugi::xml_node run : field.results)
                    node.parent().insert_move_before(run, node);
            }
            part_.detach(node);
        }
    }

    const opc::XmlPart& part_;
    opc::WordNames names_;
    MarkedPlaces& marked_;
    LetterUse use_;
    std::vector<Field> open_;
    std::vector<Field> fields_;
    bool hasReferences_ = false;
};

}  // namespace

bool markReferences(const opc::XmlPart& part, MarkedPlaces& marked, LetterUse use) {
    return ReferenceMarker(part, marked, use).mark();
}

}  // namespace mergeloom::embedded
