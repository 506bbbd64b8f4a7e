#include "office/libreoffice/word/WriterContent.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/FieldFinder.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <com/sun/star/lang/XEventListener.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <cppuhelper/implbase1.hxx>
#include <utility>

namespace mergeloom::libreoffice {

/// Closes the content when the office closes the document.
class WriterContent::CloseListener final : public cppu::WeakImplHelper1<css::lang::XEventListener> {
  public:
    explicit CloseListener(WriterContent& content) : content_(&content) {}

    void SAL_CALL disposing(const css::lang::EventObject&) override {
        if (content_ != nullptr) content_->close();
    }
    /// Makes the listener do nothing; the document keeps it until it is closed.
    void detach() { content_ = nullptr; }

  private:
    WriterContent* content_;
};

WriterContent::WriterContent(const Reference<css::uno::XComponentContext>& office,
                             const DocumentReference& document)
    : office_(office), closing_(new CloseListener(*this)) {
    translatingErrors([&] {
        model_.emplace(document);
        document->addEventListener(closing_.get());
    });
    bookmarks_.emplace(*model_);
    finder_.emplace(*model_, *bookmarks_);
}

WriterContent::~WriterContent() {
    closing_->detach();
}

void WriterContent::checkIsOpen() const {
    if (!isOpen()) throw AutomationError(kObjectDeleted, "The document is closed.");
}

void WriterContent::setProtection(const std::string& fileName, opc::DocumentProtection protection) {
    fileName_ = fileName;
    protection_ = protection;
}

void WriterContent::takeFile(const std::string& fileName, const std::string& content) {
    takenFile_ = {fileName, content};
}

std::string WriterContent::takenFile(const std::string& fileName) {
    const auto [name, content] = std::exchange(takenFile_, {});
    if (name == fileName) return content;
    throw AutomationError(kFileCouldNotBeRead, "The file '" + fileName + "' was not handed over.");
}

void WriterContent::checkMayEdit() const {
    if (protection_ != opc::DocumentProtection::None) opc::refuseProtected(fileName_, protection_);
}

void WriterContent::forget() {
    bookmarks_->forget();
    finder_->forget();
    stories_.clear();
    recorded_.reset();
    removedFields_.clear();
    newTable_.reset();
}

const std::vector<Story>& WriterContent::stories() {
    if (stories_.empty()) stories_ = storiesOf(*model_);
    return stories_;
}

TextReference WriterContent::storyOf(const RangeReference& range) {
    if (order::holds(model_->body, range)) return model_->body;
    for (const Story& story : stories()) {
        if (order::holds(story.text, range)) return story.text;
    }
    return range->getText();
}

std::string WriterContent::nameOf(const TextReference& story) {
    if (story.get() == model_->body.get()) return stories().front().name;
    const auto isIt = [&](const Story& other) { return order::holds(other.text, story->getStart()); };
    const auto found = std::ranges::find_if(stories(), isIt);
    if (found == stories().end())
        throw AutomationError(kNotAvailable, "LibreOffice does not name the story.");
    return found->name;
}

RangePtr WriterContent::track(TrackedRange range) {
    std::erase_if(tracked_, [](const std::weak_ptr<TrackedRange>& tracked) { return tracked.expired(); });
    auto tracked = std::make_shared<TrackedRange>(std::move(range));
    tracked_.push_back(tracked);
    return tracked;
}

RangePtr WriterContent::copyOf(const TrackedRange& range) {
    TrackedRange copy = range;
    copy.cursor = cursorOver(rangeOf(range.cursor));
    return track(std::move(copy));
}

RangePtr WriterContent::linkedTo(const word::Range& range) const {
    const auto found = linked_.find(&range);
    if (found == linked_.end())
        throw AutomationError(kCommandFailed, "The range is one of another document.");
    return found->second;
}

void WriterContent::holdBack(const TrackedRange& edited, const RangeReference& start,
                             const RangeReference& end) {
    for (const std::weak_ptr<TrackedRange>& watched : tracked_) {
        const RangePtr range = watched.lock();
        if (!range || range.get() == &edited || range->story.get() != edited.story.get()) continue;
        const bool movesStart = range->startBeyond == Beyond::Nothing &&
                                order::compareStarts(range->story, rangeOf(range->cursor), end) == 0;
        const bool movesEnd = range->endBeyond == Beyond::Nothing &&
                              order::compareEnds(range->story, rangeOf(range->cursor), end) == 0;
        if (!movesStart && !movesEnd) continue;
        range->cursor = cursorOver(movesStart ? start : range->cursor->getStart(),
                                   movesEnd ? start : range->cursor->getEnd());
    }
}

RangePtr WriterContent::selection() {
    if (!selection_) selection_ = track({model_->body, cursorOver(firstPlaceOf(model_->body))});
    return selection_;
}

void WriterContent::select(const TrackedRange& range) {
    selection_ = copyOf(range);
}

void WriterContent::addBookmark(const std::string& name, const TrackedRange& range) {
    checkMayEdit();
    word::checkBookmarkName(name);
    finder_->put(name, range);
}

void WriterContent::removeBookmark(const std::string& name) {
    bookmarks_->remove(name);
    finder_->forgetGap();
}

void WriterContent::noteRemovedField(const CursorReference& place, const std::string& code) {
    removedFields_.push_back({place, code});
}

void WriterContent::notePlaceAfter(const TableReference& table, const TrackedRange& range) {
    newTable_.emplace(table, cursorOver(range.cursor->getStart()));
}

RangeReference WriterContent::placeAfter(const TextReference& story, const TableReference& table) {
    if (newTable_) {
        const CursorReference cursor = cursorOver(rangeOf(newTable_->second));
        Reference<css::text::XParagraphCursor>(cursor, UNO_QUERY_THROW)->gotoStartOfParagraph(false);
        const TableReference before = tableBefore(rangeOf(cursor));
        if (before.is() && isSameTable(before, table)) return cursor->getStart();
    }
    return libreoffice::placeAfter(story, table);
}

WriterContent::Neighbour WriterContent::neighbourOf(const RangeReference& place, bool isBefore) {
    const CursorReference cursor = cursorOver(place);
    const bool isBeside = isBefore ? cursor->goLeft(1, false) : cursor->goRight(1, false);
    return {cursor, isBeside};
}

void WriterContent::startRecord(const std::string& name) {
    endRecord();
    const RangePtr selected = selection();
    recorded_ =
        Recorded{selected->story, neighbourOf(selected->cursor->getStart(), true),
                 neighbourOf(selected->cursor->getEnd(), false), selected->startBeyond, selected->endBeyond};
    removedFields_.clear();
    recording_ = std::make_unique<UndoContext>(model_->undo, name);
    model_->model->lockControllers();
}

bool WriterContent::endRecord() {
    if (!recording_) return false;
    const std::unique_ptr<UndoContext> context = std::move(recording_);
    model_->model->unlockControllers();
    return context->leave();
}

/// Goes back to the selection from the characters beside it.
void WriterContent::restoreSelection(const Recorded& recorded) {
    const auto [before, after] = std::pair(recorded.before.at, recorded.after.at);
    if (recorded.before.isBeside) before->goRight(1, false);
    if (recorded.after.isBeside) after->goLeft(1, false);
    if (!recorded.before.isBeside) before->gotoStart(false);
    if (!recorded.after.isBeside) after->gotoEnd(false);
    select({recorded.story, cursorOver(rangeOf(before), rangeOf(after)), recorded.startBeyond,
            recorded.endBeyond});
}

/// Gives the fields that came back their codes again.
void WriterContent::restoreCodes() {
    model_->undo->lock();
    for (const RemovedField& field : std::exchange(removedFields_, {}))
        restoreCode(rangeOf(field.place), field.code);
    model_->undo->unlock();
}

bool WriterContent::undo(int times) {
    endRecord();
    int left = times;
    for (; left > 0 && model_->undo->isUndoPossible(); --left)
        model_->undo->undo();
    if (left == times) return false;
    bookmarks_->forgetPlaces();
    finder_->forget();
    if (times == 1 && recorded_) {
        restoreSelection(*recorded_);
        restoreCodes();
    }
    recorded_.reset();
    return true;
}

void WriterContent::close() {
    if (!isOpen()) return;
    selection_.reset();
    recorded_.reset();
    recording_.reset();
    removedFields_.clear();
    stories_.clear();
    newTable_.reset();
    finder_.reset();
    bookmarks_.reset();
    for (const std::weak_ptr<TrackedRange>& watched : tracked_) {
        // Its objects go with the document.
        if (const RangePtr range = watched.lock()) *range = {};
    }
    model_.reset();
}

}  // namespace mergeloom::libreoffice
