#include "office/embedded/letters/SharedLayout.h"

#include "base/Text.h"
#include "office/embedded/letters/FilledLetter.h"
#include "office/model/word/FieldCode.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

namespace {

using opc::WordTag;

/// The elements that look different in a document of several records.
constexpr std::array<std::string_view, 10> kOwnDocumentOnly = {
    "footnoteReference", "endnoteReference", "commentReference", "altChunk", "subDoc", "lnNumType",
    "keepNext",  // LibreOffice breaks a chain that is longer than a page elsewhere
    "linkedTxbx",        "ffData",           "control"};

/// The fields whose results do not depend on other records.
constexpr std::array<std::string_view, 14> kIndependentFields = {
    "page",  "date",    "time",        "createdate", "savedate", "author",      "title",
    "quote", "subject", "docproperty", "mergefield", "symbol",   "macrobutton", "comments"};

template <typename Names>
bool isOneOf(const Names& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

/// Searches the parts of a template for content that needs a document of its own.
class DependentContent {
  public:
    DependentContent(const opc::XmlPart& part, const NumberedStyles& styles, const ListRestarts& lists)
        : names_(part.root()), styles_(styles), lists_(lists) {}

    bool isBelow(pugi::xml_node node) {
        if (isDependent(node)) return true;
        return std::ranges::any_of(node.children(), [this](pugi::xml_node child) { return isBelow(child); });
    }

  private:
    bool isDependent(pugi::xml_node node) {
        switch (names_.tagOf(node)) {
            case WordTag::FieldCharacter:
                return endsCode(names_.value(node, "fldCharType"));
            case WordTag::InstructionText:
                if (!codes_.empty()) codes_.back() += node.text().get();
                return false;
            case WordTag::SimpleField:
                return !isIndependentField(names_.value(node, "instr"));
            case WordTag::Hyperlink:
                return *names_.value(node, "anchor") != '\0';
            case WordTag::ContentControl:
                return isInput(node);
            case WordTag::Paragraph:
                // Numbered lists continue through a document.
                return lists_.counts(styles_.listOf(node, names_));
            case WordTag::SectionProperties:
                return ++sections_ > 1 || hasColumns(node);
            default:
                return isOneOf(kOwnDocumentOnly, opc::localName(node));
        }
    }

    /// Follows the marks of fields. Returns true at the end of a code that depends on other records.
    bool endsCode(std::string_view type) {
        if (type == "begin") {
            codes_.emplace_back();
            return false;
        }
        if (codes_.empty()) return true;
        const std::string code = codes_.back();
        if (type == "end") codes_.pop_back();
        return !isIndependentField(code);
    }

    static bool isIndependentField(std::string_view code) {
        const std::vector<std::string> words = word::piecesOfCode(code);
        if (words.empty()) return false;
        const std::string keyword = toLowerAscii(words.front());
        if (keyword == "hyperlink") return !isOneOf(words, "\\l");
        return isOneOf(kIndependentFields, keyword);
    }

    /// Returns true for a control, which may become an input field with a name. Galleries, as of page
    /// numbers, do not.
    [[nodiscard]] bool isInput(pugi::xml_node control) const {
        const pugi::xml_node properties = control.child(names_.element("sdtPr").c_str());
        return !properties.child(names_.element("docPartObj").c_str());
    }

    [[nodiscard]] bool hasColumns(pugi::xml_node section) const {
        const pugi::xml_node columns = section.child(names_.element("cols").c_str());
        const std::string_view count = names_.value(columns, "num");
        return (!count.empty() && count != "1") || columns.first_child();
    }

    opc::WordNames names_;
    const NumberedStyles& styles_;
    const ListRestarts& lists_;
    std::vector<std::string> codes_;  ///< of the open fields
    int sections_ = 0;
};

}  // namespace

bool hasSharedLayout(opc::Package& package, const NumberedStyles& styles, const ListRestarts& lists) {
    return std::ranges::none_of(partsWithPlaces(package), [&](const StoryPart& story) {
        const std::unique_ptr<opc::XmlPart> part =
            opc::XmlPart::parse(package.readPart(story.name), story.name, package.fileName());
        // Every document with notes has those that separate them from the text.
        return story.kind != PartKind::Notes && DependentContent(*part, styles, lists).isBelow(part->root());
    });
}

}  // namespace mergeloom::embedded
