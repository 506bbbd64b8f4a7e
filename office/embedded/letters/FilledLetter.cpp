#include "office/embedded/letters/FilledLetter.h"

#include "base/AutomationError.h"
#include "office/embedded/letters/OmittedRestoration.h"
#include "office/embedded/letters/ParagraphXml.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

constexpr std::array<std::pair<const char*, PartKind>, 5> kRelatedParts = {
    {{"header", PartKind::HeaderOrFooter},
     {"footer", PartKind::HeaderOrFooter},
     {"footnotes", PartKind::Notes},
     {"endnotes", PartKind::Notes},
     {"comments", PartKind::Comments}}};

/// Restores one part of a filled letter.
class PartRestoration {
  public:
    PartRestoration(opc::XmlPart& part, const OmittedContent& omitted)
        : part_(part), names_(part.root()), omitted_(part, omitted) {}

    void restore() {
        visit(part_.root());
        omitted_.restore();
        for (const pugi::xml_node row : addedRows_)
            part_.detach(row);
        for (const pugi::xml_node mark : addedMarks_)
            part_.detach(mark);
        for (const pugi::xml_node label : labels_)
            emptyLabel(label);
        // From the last on, since two places may have split one paragraph.
        for (auto split = split_.rbegin(); split != split_.rend(); ++split)
            joinParagraphs(part_, split->first, split->second);
        const bool isChanged = !addedMarks_.empty() || filledRuns_ > 0;
        part_.setDirty(isChanged);
    }

  private:
    // Recursion is safe: parts that are nested too deeply are not parsed.
    void visit(pugi::xml_node node) {
        enter(node);
        for (const pugi::xml_node child : node.children())
            visit(child);
        if (names_.tagOf(node) == WordTag::Row) leaveRow(node);
    }

    void enter(pugi::xml_node node) {
        switch (names_.tagOf(node)) {
            case WordTag::BookmarkStart:
                return enterStart(node);
            case WordTag::BookmarkEnd:
                return enterEnd(node);
            case WordTag::Row:
                return openRows_.push_back({node, !openAdded_.empty(), false});
            case WordTag::Run:
                return fillKeeper(node);
            case WordTag::Paragraph:
                startsBefore_.clear();
                return;
            default:
                return;
        }
    }

    void enterStart(pugi::xml_node node) {
        startsBefore_.push_back(names_.value(node, "id"));
        const std::string_view name = names_.value(node, "name");
        omitted_.addId(names_.value(node, "id"));
        if (name.starts_with(kFilledLabelName)) {
            notePosition(node);
            labels_.push_back(names_.ancestor(node, WordTag::CellElement));
        }
        if (name.starts_with(kOmittedName)) {
            notePosition(node);
            omitted_.addMark(node);
        }
        if (!name.starts_with(kAddedRowsName)) return;
        openAdded_[names_.value(node, "id")] = true;
        addedMarks_.push_back(node);
        // Word moves the mark into the first cell of the rows.
        if (!openRows_.empty() && !openRows_.back().hasText) openRows_.back().isAdded = true;
    }
    /// Notes the start of a bookmark that marks a position and no content.
    void notePosition(pugi::xml_node start) {
        openPositions_.insert(names_.value(start, "id"));
        addedMarks_.push_back(start);
        startsBefore_.pop_back();
    }

    void enterEnd(pugi::xml_node node) {
        noteSplit(node);
        if (openPositions_.erase(names_.value(node, "id")) > 0) return addedMarks_.push_back(node);
        if (openAdded_.erase(names_.value(node, "id")) == 0) return;
        addedMarks_.push_back(node);
        // Word moves the mark into the first cell of the row that follows.
        if (!openRows_.empty() && !openRows_.back().hasText) openRows_.back().isAdded = false;
    }

    void fillKeeper(pugi::xml_node run) {
        if (!openRows_.empty()) openRows_.back().hasText = true;
        const pugi::xml_node text = names_.child(run, WordTag::TextElement);
        if (!startsBefore_.empty() && text && !text.first_child() && text == run.last_child()) {
            pugi::xml_node(text).append_child(pugi::node_pcdata).set_value(kKeptPlace);
            ++filledRuns_;
            for (const std::string& id : startsBefore_)
                filledStarts_[id] = run.parent();
        }
        startsBefore_.clear();
    }

    /// Notes the paragraphs of a place whose rich text split its paragraph.
    void noteSplit(pugi::xml_node end) {
        const auto start = filledStarts_.find(names_.value(end, "id"));
        if (start == filledStarts_.end()) return;
        const pugi::xml_node first = start->second;
        const pugi::xml_node last = end.parent();
        filledStarts_.erase(start);
        const bool areParagraphs =
            names_.tagOf(first) == WordTag::Paragraph && names_.tagOf(last) == WordTag::Paragraph;
        if (areParagraphs && first != last && first.parent() == last.parent())
            split_.emplace_back(first, last);
    }

    /// Leaves one empty paragraph, with the properties of the first one.
    void emptyLabel(pugi::xml_node cell) {
        const pugi::xml_node first = names_.child(cell, WordTag::Paragraph);
        const pugi::xml_node properties = names_.child(first, WordTag::ParagraphProperties);
        for (pugi::xml_node child = cell.first_child(); child;) {
            const pugi::xml_node next = child.next_sibling();
            const bool isKept = child == first || child.name() == names_.element("tcPr");
            if (!isKept) part_.detach(child);
            child = next;
        }
        for (pugi::xml_node child = first.first_child(); child;) {
            const pugi::xml_node next = child.next_sibling();
            if (child != properties) part_.detach(child);
            child = next;
        }
    }

    void leaveRow(pugi::xml_node row) {
        if (openRows_.back().isAdded) addedRows_.push_back(row);
        openRows_.pop_back();
    }

    struct OpenRow {
        pugi::xml_node row;
        bool isAdded;
        bool hasText;
    };

    opc::XmlPart& part_;
    opc::WordNames names_;
    OmittedRestoration omitted_;
    std::map<std::string, bool> openAdded_;
    std::set<std::string> openPositions_;
    std::vector<OpenRow> openRows_;
    std::vector<pugi::xml_node> addedRows_;
    std::vector<pugi::xml_node> addedMarks_;
    std::vector<pugi::xml_node> labels_;  ///< the cells of the labels after the first one
    /// The ids of the bookmarks that start directly before the next run of the paragraph.
    std::vector<std::string> startsBefore_;
    /// The paragraphs of places that begin with an empty run, by the ids of their bookmarks.
    std::map<std::string, pugi::xml_node> filledStarts_;
    std::vector<std::pair<pugi::xml_node, pugi::xml_node>> split_;
    int filledRuns_ = 0;
};

/// Returns true if an element contains characters that are used to mark places.
bool hasMark(pugi::xml_node node) {
    const auto isMarked = [](std::string_view text) {
        for (std::size_t at = text.find("\xEF\xB7"); at != std::string_view::npos;
             at = text.find("\xEF\xB7", at + 1)) {
            if (at + 2 < text.size() && text[at + 2] >= '\x90' && text[at + 2] <= '\x93') return true;
        }
        return false;
    };
    return isMarked(node.value()) ||
           std::ranges::any_of(node.attributes(),
                               [&](pugi::xml_attribute attribute) { return isMarked(attribute.value()); }) ||
           std::ranges::any_of(node.children(), hasMark);
}

}  // namespace

std::vector<StoryPart> partsWithPlaces(opc::Package& package) {
    const std::string mainPart = package.mainPart();
    std::vector<StoryPart> parts{{mainPart, PartKind::Body}};
    opc::Relationships& relationships = package.relationshipsOf(mainPart);
    for (const auto& [type, kind] : kRelatedParts) {
        for (const opc::Relationship* relationship : relationships.ofOfficeType(type)) {
            const std::string part = relationships.targetPart(*relationship);
            const bool isNew = std::ranges::find(parts, part, &StoryPart::name) == parts.end();
            if (isNew && package.hasPart(part)) parts.push_back({part, kind});
        }
    }
    return parts;
}

void restoreTemplate(opc::Package& package) {
    const OmittedContent omitted = takeOmittedContent(package);
    for (const auto& [name, kind] : partsWithPlaces(package)) {
        const std::unique_ptr<opc::XmlPart> part =
            opc::XmlPart::parse(package.readPart(name), name, package.fileName());
        if (hasMark(part->root())) {
            throw AutomationError(kNotAvailable,
                                  "The template '" + package.fileName() +
                                      "' cannot be filled: it contains characters that no text "
                                      "has (U+FDD0 to U+FDD3).");
        }
        PartRestoration(*part, omitted).restore();
        if (part->isDirty()) package.writePart(name, part->toXml());
    }
}

}  // namespace mergeloom::embedded
