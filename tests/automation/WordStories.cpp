#include "automation/WordObjects.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace mergeloom::automation {

namespace {

constexpr const char* kBody = "body";

/// Sorts names of stories by their numbers.
struct InOrder {
    bool operator()(const std::string& a, const std::string& b) const { return key(a) < key(b); }

    static std::pair<int, int> key(const std::string& name) {
        const std::size_t digits = name.find_last_of(' ') + 1;
        int number = 0;
        std::from_chars(name.data() + digits, name.data() + name.size(), number);
        return {storyTypeOf(name), number};
    }
};

using StoryNames = std::set<std::string, InOrder>;

StoryNames storyNamesOf(word::Document& document) {
    StoryNames names{kBody};
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    for (int number = 1; number <= bookmarks->Count(); ++number)
        names.insert(bookmarks->Item(number)->Range()->storyName());
    const word::FieldsPtr fields = document.Fields();
    for (int number = 1; number <= fields->Count(); ++number)
        names.insert(fields->Item(number)->Code()->storyName());
    return names;
}

/// The fields of one story, which Word's collection of a range has.
class StoryFields final : public word::Fields {
  public:
    StoryFields(const std::string& story, word::Document& document) {
        const word::FieldsPtr all = document.Fields();
        for (int number = 1; number <= all->Count(); ++number) {
            const word::FieldPtr field = all->Item(number);
            if (field->Code()->storyName() == story) fields_.push_back(field);
        }
    }
    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override { return fields_[indexOf(number)]; }

  private:
    std::vector<word::FieldPtr> fields_;
};

/// A whole story, with the members for its name and its fields only.
class StoryRange final : public word::Range {
  public:
    StoryRange(std::string name, word::DocumentPtr document)
        : name_(std::move(name)), document_(std::move(document)) {}

    std::string storyName() override { return name_; }
    CharacterPosition Start() override { return {0}; }
    CharacterPosition End() override { refuse(); }
    std::string Text() override { refuse(); }
    void SetText(const std::string& /*text*/) override { refuse(); }
    word::BookmarksPtr Bookmarks() override { refuse(); }
    word::CellsPtr Cells() override { refuse(); }
    word::FieldsPtr Fields() override { return std::make_shared<StoryFields>(name_, *document_); }
    word::InlineShapesPtr InlineShapes() override { refuse(); }
    word::TablesPtr Tables() override { refuse(); }
    word::RangePtr Previous(word::WdUnits /*unit*/, int /*count*/) override { refuse(); }
    void Select() override { refuse(); }

  private:
    [[noreturn]] static void refuse() {
        throw AutomationError(kCommandFailed, "The double does not know this of a whole story.");
    }

    std::string name_;
    word::DocumentPtr document_;
};

DispatchPtr wordStory(const std::string& name, const word::DocumentPtr& document) {
    return wordRange(std::make_shared<StoryRange>(name, document), document);
}

}  // namespace

int storyTypeOf(const std::string& name) {
    static const std::map<std::string, int> types{{kBody, 1},     {"footnote", 2}, {"endnote", 3},
                                                  {"comment", 4}, {"text box", 5}, {"header", 7},
                                                  {"footer", 9}};
    const auto found = types.find(name.substr(0, name.find_last_of(' ')));
    return found == types.end() ? 0 : found->second;
}

DispatchPtr nextStory(const std::string& name, const word::DocumentPtr& document) {
    const StoryNames names = storyNamesOf(*document);
    const auto next = names.upper_bound(name);
    const bool isOfType = next != names.end() && storyTypeOf(*next) == storyTypeOf(name);
    return isOfType ? wordStory(*next, document) : DispatchPtr();
}

DispatchPtr wordStoryRanges(const word::DocumentPtr& document) {
    const auto firstOnes = [document] {
        std::vector<DispatchPtr> stories;
        int type = 0;
        for (const std::string& name : storyNamesOf(*document)) {
            if (storyTypeOf(name) == type) continue;
            type = storyTypeOf(name);
            stories.push_back(wordStory(name, document));
        }
        return stories;
    };
    return makeObject({property("Count", [=] { return static_cast<int>(firstOnes().size()); })}, nullptr,
                      firstOnes);
}

}  // namespace mergeloom::automation
