#include "office/com/word/ComWordModel.h"
#include "office/model/word/BookmarkName.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"

namespace mergeloom::com {

namespace {

class ComBookmark final : public word::Bookmark {
  public:
    /// The name is empty if it has to be read from Word.
    ComBookmark(ComWordModelPtr model, AutomationObject bookmark, std::string name)
        : model_(std::move(model)), bookmark_(std::move(bookmark)), name_(std::move(name)) {}

    std::string Name() override { return name_.empty() ? bookmark_.get("Name").text() : name_; }
    word::RangePtr Range() override { return makeRange(model_, bookmark_.object("Range", "Range")); }
    CharacterPosition Start() override { return {bookmark_.get("Start").number()}; }
    void SetStart(CharacterPosition start) override { bookmark_.put("Start", start.value); }
    CharacterPosition End() override { return {bookmark_.get("End").number()}; }
    void SetEnd(CharacterPosition end) override { bookmark_.put("End", end.value); }
    void Select() override { bookmark_.call("Select"); }

  private:
    ComWordModelPtr model_;
    AutomationObject bookmark_;
    std::string name_;
};

class ComBookmarks final : public word::Bookmarks {
  public:
    ComBookmarks(ComWordModelPtr model, AutomationObject bookmarks, KnownNamesPtr known)
        : model_(std::move(model)), bookmarks_(std::move(bookmarks)), known_(std::move(known)) {}

    int Count() override { return bookmarks_.get("Count").integer(); }
    word::BookmarkPtr Item(int number) override { return item(number); }
    word::BookmarkPtr Item(const std::string& name) override { return item(name); }
    bool Exists(const std::string& name) override {
        // Word's collection leaves out the hidden ones.
        const bool isKnown = !known_ || word::isHiddenBookmark(name) || known_->mayHave(name);
        return isKnown && bookmarks_.get("Exists", {name}).truth();
    }
    word::BookmarkPtr Add(const std::string& name, word::Range& range) override {
        // Word may keep the letters of a name that exists.
        const bool isNew = known_ && !known_->mayHave(name);
        if (known_) known_->add(name);
        const AutomationObject added = bookmarks_.callForObject(
            "Bookmark", "Add", {{"Name", name}, {"Range", model_->referenceOf(range)}});
        return make(added, isNew ? name : "");
    }

  private:
    word::BookmarkPtr item(const Value& index) {
        return make(bookmarks_.object("Bookmark", "Item", {index}), "");
    }
    word::BookmarkPtr make(const AutomationObject& bookmark, const std::string& name) {
        return std::make_shared<ComBookmark>(model_, bookmark, name);
    }

    ComWordModelPtr model_;
    AutomationObject bookmarks_;
    KnownNamesPtr known_;
};

}  // namespace

word::BookmarksPtr makeBookmarks(const ComWordModelPtr& model, const AutomationObject& bookmarks,
                                 const KnownNamesPtr& known) {
    return std::make_shared<ComBookmarks>(model, bookmarks, known);
}

}  // namespace mergeloom::com
