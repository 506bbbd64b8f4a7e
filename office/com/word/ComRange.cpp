#include "base/Text.h"
#include "office/com/automation/OfficeErrors.h"
#include "office/com/word/ComWordModel.h"
#include "office/com/word/StoryNames.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

namespace mergeloom::com {

namespace {

/// CR alone ends a paragraph in all of Word; LF is a character of its own in some places.
std::string withParagraphMarks(const std::string& text) {
    return replaceAll(replaceAll(text, "\r\n", "\r"), "\n", "\r");
}

/// The pictures in a range or in the selection, which covers a picture that is added.
class ComInlineShapes final : public word::InlineShapes {
  public:
    enum class Owner { Range, Selection };

    ComInlineShapes(AutomationObject owner, Owner kind) : owner_(std::move(owner)), kind_(kind) {}

    int Count() override { return shapes().get("Count").integer(); }
    void AddPicture(const std::string& fileName) override {
        const std::int64_t start = owner_.get("Start").number();
        const DispatchPtr place =
            kind_ == Owner::Range ? owner_.reference() : owner_.object("Range", "Range").reference();
        readingFile(*owner_.session(), fileName, [&] {
            shapes().call("AddPicture", {{"FileName", fileName},
                                         {"LinkToFile", false},
                                         {"SaveWithDocument", true},
                                         {"Range", place}});
        });
        owner_.call("SetRange", {{"Start", start}, {"End", start + 1}});
    }

  private:
    [[nodiscard]] AutomationObject shapes() const { return owner_.object("InlineShapes", "InlineShapes"); }

    AutomationObject owner_;
    Owner kind_;
};

class ComRange final : public word::Range {
  public:
    ComRange(ComWordModelPtr model, AutomationObject range, RangeKind kind)
        : model_(std::move(model)), range_(std::move(range)) {
        model_->set(*this, range_.reference());
        if (kind == RangeKind::Caret) emptySince_ = model_->session().changes();
    }
    ~ComRange() override { model_->remove(*this); }

    CharacterPosition Start() override { return {range_.get("Start").number()}; }
    CharacterPosition End() override { return {range_.get("End").number()}; }
    bool isEmpty() override { return emptySince_ == model_->session().changes() || word::Range::isEmpty(); }
    std::string storyName() override { return storyNameOf(range_); }
    std::string Text() override { return range_.get("Text").text(); }
    void SetText(const std::string& text) override {
        detach();
        range_.put("Text", withParagraphMarks(text));
    }
    word::BookmarksPtr Bookmarks() override {
        return makeBookmarks(model_, range_.object("Bookmarks", "Bookmarks"));
    }
    word::CellsPtr Cells() override { return makeCells(model_, range_.object("Cells", "Cells")); }
    word::FieldsPtr Fields() override { return makeFields(model_, range_); }
    word::InlineShapesPtr InlineShapes() override {
        detach();
        return std::make_shared<ComInlineShapes>(range_, ComInlineShapes::Owner::Range);
    }
    word::TablesPtr Tables() override { return makeTables(model_, range_.object("Tables", "Tables")); }
    word::RangePtr Previous(word::WdUnits unit, int count) override {
        const DispatchPtr found = range_.get("Previous", {{"Unit", unit}, {"Count", count}}).object();
        return found ? makeRange(model_, {range_.session(), found, "Range"}) : nullptr;
    }
    void Select() override { range_.call("Select"); }

  private:
    /// Copies a range of Word that is shared, before a change moves it.
    void detach() {
        if (!model_->isShared(range_.reference())) return;
        range_ = range_.object("Range", "Duplicate");
        model_->set(*this, range_.reference());
    }

    ComWordModelPtr model_;
    AutomationObject range_;
    std::int64_t emptySince_ = -1;  ///< the number of changes before, -1 if it may have a text
};

class ComFont final : public word::Font {
  public:
    explicit ComFont(AutomationObject font) : font_(std::move(font)) {}
    void SetSize(double points) override { font_.put("Size", points); }

  private:
    AutomationObject font_;
};

class ComSelection final : public word::Selection {
  public:
    ComSelection(ComWordModelPtr model, AutomationObject selection)
        : model_(std::move(model)), selection_(std::move(selection)) {}

    word::RangePtr Range() override {
        const bool isCaret = caretSince_ == model_->session().changes();
        return makeRange(model_, selection_.object("Range", "Range"),
                         isCaret ? RangeKind::Caret : RangeKind::Any);
    }
    void SetText(const std::string& text) override { selection_.put("Text", withParagraphMarks(text)); }
    /// Word's own TypeText would heed the user's options for typing, such as typographic quotes.
    void TypeText(const std::string& text) override {
        SetText(text);
        Collapse(word::WdCollapseDirection::wdCollapseEnd);
    }
    void TypeParagraph() override { selection_.call("TypeParagraph"); }
    void Collapse(word::WdCollapseDirection direction) override {
        selection_.call("Collapse", {{"Direction", direction}});
        caretSince_ = model_->session().changes();
    }
    void EndKey(word::WdUnits unit) override { selection_.call("EndKey", {{"Unit", unit}}); }
    word::FontPtr Font() override { return std::make_shared<ComFont>(selection_.object("Font", "Font")); }
    word::BookmarksPtr Bookmarks() override {
        return makeBookmarks(model_, selection_.object("Bookmarks", "Bookmarks"));
    }
    word::FieldsPtr Fields() override { return makeFields(model_, selection_); }
    word::InlineShapesPtr InlineShapes() override {
        return std::make_shared<ComInlineShapes>(selection_, ComInlineShapes::Owner::Selection);
    }
    word::ShapeRangePtr ShapeRange() override {
        const int count = selection_.object("ShapeRange", "ShapeRange").get("Count").integer();
        return std::make_shared<model::FixedCount<word::ShapeRange>>(count);
    }
    word::TablesPtr Tables() override { return makeTables(model_, selection_.object("Tables", "Tables")); }

  private:
    ComWordModelPtr model_;
    AutomationObject selection_;
    std::int64_t caretSince_ = -1;  ///< the number of changes before, -1 if something may be selected
};

}  // namespace

word::RangePtr makeRange(const ComWordModelPtr& model, const AutomationObject& range, RangeKind kind) {
    return std::make_shared<ComRange>(model, range, kind);
}

word::SelectionPtr makeSelection(const ComWordModelPtr& model, const AutomationObject& selection) {
    return std::make_shared<ComSelection>(model, selection);
}

}  // namespace mergeloom::com
