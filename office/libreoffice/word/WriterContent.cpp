#include "office/libreoffice/word/WriterContent.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr ErrorNumber kBadBookmarkName = 5828;

}  // namespace

WriterContent::WriterContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                             DocumentReference document)
    : session_(std::move(session)), files_(files) {
    session_->connection().call([&] { model_.emplace(document); });
}

void WriterContent::checkIsOpen() const {
    if (!isOpen()) throw AutomationError(kObjectDeleted, "The document is closed.");
}

void WriterContent::read() {
    ContentReader reader(*model_, stories_);
    reader.readTables();
    reader.readMarks(marks_);
    needle_.forget();
    isWatched_ = false;
    select({&body(), {0}, {0}});
}

WriterStory& WriterContent::storyNamed(const std::string& name) {
    const auto found = std::ranges::find(stories_, name, &WriterStory::name);
    if (found == stories_.end()) throw AutomationError(kMemberNotFound, "There is no story '" + name + "'.");
    return *found;
}

StoryPosition WriterContent::positionOf(const Reference<css::text::XTextRange>& range) {
    return ContentReader(*model_, stories_).positionOf(range);
}

std::shared_ptr<LiveStretch> WriterContent::live(WriterStory& story, CharacterPosition start,
                                                 CharacterPosition end) {
    auto stretch = std::make_shared<LiveStretch>(LiveStretch{&story, start, end});
    story.map().watch(stretch);
    return stretch;
}

void WriterContent::select(const LiveStretch& stretch) {
    // Each story keeps its own stretches true, so the selection is a new one in the story that it goes to.
    if (stretch.story != selection_->story || !isWatched_) {
        selection_ = live(*stretch.story, stretch.start, stretch.end);
        isWatched_ = true;
    }
    *selection_ = stretch;
}

const CursorReference& WriterContent::cursorOver(WriterStory& story, Stretch stretch) {
    const TextPlace from = story.map().placeOf(stretch.start);
    const TextPlace to = story.map().placeOf(stretch.end);
    const NeedleText text = story.needleText(from.text);
    if (stretch.start == stretch.end) return needle_.at(text, from.steps);
    // What ends before a cell's mark or a table still ends in the text that it began in.
    const bool isSame = from.text == to.text;
    const std::int64_t steps = isSame ? to.steps : from.steps + (stretch.end - stretch.start).value;
    return needle_.over(text, from.steps, steps);
}

void WriterContent::settle() {
    if (isRecording_) return;
    recorded_.reset();
    bringMarksToTheirPlaces();
}

void WriterContent::bringMarksToTheirPlaces() {
    for (WriterStory& story : stories_) {
        for (const MarkPtr& mark : story.map().marks()) {
            if (MarkWriter::isInPlace(*mark)) continue;
            MarkWriter::take(*model_, *mark);
            markWriter_.put(*model_, *mark);
        }
    }
}

MarkPtr WriterContent::addMark(const std::string& name, WriterStory& story, Stretch stretch) {
    if (!isBookmarkName(name)) throw AutomationError(kBadBookmarkName, "'" + name + "' is no bookmark name.");
    if (const MarkPtr former = marks_.find(name)) removeMark(former);
    const auto mark = std::make_shared<MarkRecord>();
    mark->name = name;
    mark->story = &story;
    mark->place = stretch;
    markWriter_.put(*model_, *mark);
    story.map().addMark(mark);
    marks_.list(mark);
    settle();
    return mark;
}

void WriterContent::removeMark(const MarkPtr& mark) {
    MarkWriter::take(*model_, *mark);
    mark->story->map().removeMark(mark);
    marks_.unlist(mark);
}

WriterContent::Snapshot WriterContent::snapshot() {
    Snapshot snapshot{{}, marks_.all(), *selection_};
    for (WriterStory& story : stories_)
        snapshot.stories.push_back(story.map().state());
    return snapshot;
}

/// Stories that were found meanwhile have nothing of the step that is taken back.
void WriterContent::restore(const Snapshot& snapshot) {
    for (std::size_t index = 0; index < snapshot.stories.size(); ++index)
        stories_[index].map().restore(*snapshot.stories[index]);
    marks_.clear();
    for (const MarkPtr& mark : snapshot.marks)
        marks_.list(mark);
    select(snapshot.selection);
}

void WriterContent::startRecord(const std::string& name) {
    if (isRecording_) endRecord();
    recorded_ = snapshot();
    model_->undo->enterUndoContext(toUno(name));
    model_->model->lockControllers();
    isRecording_ = true;
}

void WriterContent::endRecord() {
    if (!isRecording_) return;
    bringMarksToTheirPlaces();
    model_->model->unlockControllers();
    model_->undo->leaveUndoContext();
    isRecording_ = false;
}

bool WriterContent::undo(int times) {
    endRecord();
    int left = times;
    for (; left > 0 && model_->undo->isUndoPossible(); --left)
        model_->undo->undo();
    if (left == times) return false;
    needle_.forget();
    for (WriterStory& story : stories_)
        story.forgetCells();
    if (times == 1 && recorded_) {
        restore(*recorded_);
    } else {
        read();
    }
    recorded_.reset();
    return true;
}

void WriterContent::close() {
    if (!isOpen()) return;
    const DocumentReference document = model_->document;
    needle_.forget();
    for (WriterStory& story : stories_)
        story.forgetCells();
    model_.reset();
    session_->files().close(document);
}

}  // namespace mergeloom::libreoffice
