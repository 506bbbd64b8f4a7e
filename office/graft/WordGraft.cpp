#include "office/graft/WordGraft.h"

#include "base/AutomationError.h"
#include "office/graft/FloatingPictures.h"
#include "office/graft/FormatReplay.h"
#include "office/graft/LinkReplay.h"
#include "office/graft/MarkReplay.h"
#include "office/graft/OriginalFormat.h"
#include "office/graft/OriginalStories.h"
#include "office/graft/PictureTransfer.h"
#include "office/graft/Refusal.h"
#include "office/graft/StyleTransfer.h"
#include "office/graft/TextReplay.h"
#include "office/graft/WordExport.h"
#include "office/graft/WordRules.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <map>
#include <set>

namespace mergeloom::graft {

namespace {

/// Parts to which the office adds definitions that new text uses. New definitions are not copied, since the
/// original has its own.
constexpr std::string_view kGrowing[] = {"/word/styles.xml", "/word/numbering.xml"};

std::string reasonOf(const PartDifference& part) {
    if (part.partName == "/word/styles.xml") return "a style was changed";
    if (part.partName == "/word/numbering.xml") return "a list was changed or begun";
    if (part.partName == "/word/settings.xml") return "the document's settings were changed";
    if (part.partName.starts_with("/docProps/")) return "the document's properties were changed";
    return "the part " + part.partName + " was changed";
}

/// Repeats the changes of one document on its original.
class DocumentGraft {
  public:
    explicit DocumentGraft(const model::EditedPackage& package)
        : package_(package),
          baseline_(package.baseline, package.fileName, formats_),
          edited_(package.edited, package.fileName, formats_) {}

    model::GraftResult make() {
        const std::vector<PartDifference> parts =
            differencesOf(baseline_.package(), edited_.package(), wordRules());
        for (const PartDifference& part : parts)
            if (!hasOnlyGrown(part)) throw Refusal(reasonOf(part));
        if (baseline_.stories().size() != edited_.stories().size())
            throw Refusal("a header, a note, a comment or a text box was added or removed");
        const bool isUnchanged = std::ranges::equal(baseline_.stories(), edited_.stories(), areAlike);
        if (isUnchanged) return unchanged(package_, DocumentFamily::Word);
        embedded::WordContent content(opc::Package::read(package_.original, package_.fileName), files_);
        StyleTransfer styles(content.package(), edited_.package());
        repeat(content, styles);
        content.storeParts();
        styles.store();
        return savedOriginal(content.package(), package_, DocumentFamily::Word);
    }

  private:
    struct Replays {
        MarkReplay& marks;
        FormatReplay& formats;
        LinkReplay& links;
    };

    /// Returns true if the edited part has all children of the former one.
    [[nodiscard]] bool hasOnlyGrown(const PartDifference& part) {
        const bool mayGrow = std::ranges::find(kGrowing, part.partName) != std::end(kGrowing);
        if (!mayGrow || part.fate == PartFate::Removed) return false;
        if (part.fate == PartFate::Added) return true;
        const std::vector<std::string> former = childrenOf(baseline_, part.partName);
        const std::vector<std::string> now = childrenOf(edited_, part.partName);
        const std::multiset<std::string> all(now.begin(), now.end());
        return std::ranges::all_of(former, [&](const std::string& child) { return all.contains(child); });
    }
    static std::vector<std::string> childrenOf(WordExport& exported, const std::string& partName) {
        opc::Package& package = exported.package();
        const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
        const CanonicalXml canonical(wordRules().xml, targetsOf(package, partName));
        std::vector<std::string> children;
        for (const pugi::xml_node child : part->root().children())
            children.push_back(canonical.of(child));
        return children;
    }
    void repeat(embedded::WordContent& content, StyleTransfer& styles) {
        // Looked up before the first edit, since stories are identified by their texts.
        std::vector<embedded::Story*> originals(edited_.stories().size(), nullptr);
        for (std::size_t story = 0; story < originals.size(); ++story)
            if (!areAlike(baseline_.stories()[story], edited_.stories()[story]))
                originals[story] = &originalOf(content, baseline_.stories()[story]);
        MarkReplay marks(content, baseline_, edited_);
        FormatReplay formats(content, edited_, styles);
        LinkReplay links(content, baseline_, edited_);
        std::map<embedded::Story*, std::size_t> done;
        for (std::size_t story = 0; story < originals.size(); ++story) {
            if (originals[story] == nullptr) continue;
            const auto [former, isFirst] = done.try_emplace(originals[story], story);
            if (!isFirst) {
                checkSameChange(former->second, story);
                continue;
            }
            repeat(content, *originals[story], story, {marks, formats, links});
        }
    }
    /// The office writes a header several times, and each edit of it, too.
    void checkSameChange(std::size_t first, std::size_t second) {
        const auto textsOf = [&](std::size_t story) {
            std::string all;
            for (const Line& line : edited_.stories()[story].lines)
                all += line.key + "\n";
            return all;
        };
        if (textsOf(first) != textsOf(second))
            throw Refusal("two headers that are one in the file were changed");
    }
    void repeat(embedded::WordContent& content, embedded::Story& original, std::size_t story,
                const Replays& replays) {
        const ReadStory& former = baseline_.stories()[story];
        const ReadStory& now = edited_.stories()[story];
        const auto difference = differenceBetween(former.lines, now.lines);
        if (!difference) throw Refusal("too much was changed to be compared");
        replays.marks.prepare(original, former);
        TextReplay(content, original, former, now, pictures_).repeat(difference->edits);
        replays.formats.repeat(original, former, now, *difference);
        replays.links.repeat(original, former, now, *difference);
        replays.marks.repeat(original, former, now, *difference);
        floating_.repeat(content, original, former, now);
    }

    const model::EditedPackage& package_;
    FormatNumbers formats_;
    WordExport baseline_;
    WordExport edited_;
    HeldFiles files_;
    PictureTransfer pictures_{edited_, files_};
    FloatingPictures floating_{baseline_, edited_, pictures_};
};

}  // namespace

model::GraftResult graftDocument(const model::EditedPackage& package) try {
    return DocumentGraft(package).make();
} catch (const Refusal& refusal) {
    return refusal.refusal();
} catch (const AutomationError& error) {
    return model::GraftRefusal{error.description(), {}};
}

}  // namespace mergeloom::graft
