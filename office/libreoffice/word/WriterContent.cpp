#include "office/libreoffice/word/WriterContent.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// The bookmarks that Writer has elsewhere than Word would, in the order in which they are to be put in: of
/// those that begin at one place, Writer takes the last one for the outermost.
std::vector<MarkPtr> misplacedMarks(const StoryMap& map) {
    std::vector<MarkPtr> found;
    for (auto mark = map.marks().rbegin(); mark != map.marks().rend(); ++mark) {
        if (!MarkWriter::isInPlace(**mark) && MarkWriter::canPut(**mark)) found.push_back(*mark);
    }
    std::ranges::stable_sort(
        found, {}, [](const MarkPtr& mark) { return std::pair(mark->place.start, mark->place.end); });
    return found;
}

/// Tells the map of the characters of two units.
void addPairs(StoryMap& map, CharacterPosition position, std::string_view text) {
    while (!text.empty()) {
        const bool isPair = takeCodePoint(text) > 0xFFFF;
        if (isPair) map.addPair(position);
        position = position + CharacterCount{isPair ? 2 : 1};
    }
}

}  // namespace

WriterContent::WriterContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                             DocumentReference document, ContentOrigin origin)
    : session_(std::move(session)), files_(files), origin_(origin) {
    session_->connection().call([&] { model_.emplace(document); });
}

void WriterContent::checkIsOpen() const {
    if (!isOpen()) throw AutomationError(kObjectDeleted, "The document is closed.");
}

void WriterContent::setProtection(const std::string& fileName, opc::DocumentProtection protection) {
    fileName_ = fileName;
    protection_ = protection;
}

void WriterContent::checkMayEdit() const {
    if (protection_ != opc::DocumentProtection::None) opc::refuseProtected(fileName_, protection_);
}

void WriterContent::read(ContentOrigin origin) {
    ContentReader reader(*session_, *model_, stories_, marks_);
    if (origin == ContentOrigin::Empty) {
        reader.readEmpty();
    } else {
        reader.read();
    }
    needle_.forget();
    isKnown_ = true;
    isWatched_ = false;
    select({&body(), {0}, {0}});
}

void WriterContent::forget() {
    callOutside([this] { flush(); });
    needle_.forget();
    for (WriterStory& story : stories_)
        story.forgetCells();
    recorded_.reset();
    origin_ = ContentOrigin::File;
    isKnown_ = false;
}

WriterStory& WriterContent::storyNamed(const std::string& name) {
    const auto found = std::ranges::find(stories_, name, &WriterStory::name);
    if (found == stories_.end()) throw AutomationError(kMemberNotFound, "There is no story '" + name + "'.");
    return *found;
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

Needle& WriterContent::needle() {
    flush();
    return needle_;
}

void WriterContent::type(WriterStory& story, CharacterPosition position, const std::string& text) {
    const bool goesOn = typed_ && typed_->story == &story && typed_->end == position;
    if (!goesOn) {
        flush();
        const TextPlace place = story.map().placeOf(position);
        typed_ = TypedText{&story, position, story.needleText(place.text), place.steps, {}, 0};
    }
    const OUString added = toUno(text);
    const CharacterCount length{added.getLength()};
    story.map().insertText(position, length);
    addPairs(story.map(), position, text);
    typed_->text += added;
    typed_->textSteps += story.map().stepsOver({position, position + length});
    typed_->end = position + length;
    if (!isRecording_) flush();
}

void WriterContent::flush() {
    if (!typed_) return;
    const TypedText typed = *std::exchange(typed_, std::nullopt);
    typed.way.text->insertString(rangeOf(needle_.at(typed.way, typed.steps)), typed.text, false);
    needle_.passed(typed.textSteps);
}

const CursorReference& WriterContent::cursorOver(WriterStory& story, Stretch stretch) {
    flush();
    const TextPlace from = story.map().placeOf(stretch.start);
    const NeedleText text = story.needleText(from.text);
    if (stretch.start == stretch.end) return needle_.at(text, from.steps);
    const TextPlace to = story.map().placeOf(stretch.end);
    // What ends before a cell's mark or a table still ends in the text that it began in.
    const bool isSame = from.text == to.text;
    return needle_.over(text, from.steps, isSame ? to.steps : from.steps + story.map().stepsOver(stretch));
}

void WriterContent::settle() {
    if (isRecording_) return;
    recorded_.reset();
    bringMarksToTheirPlaces();
}

void WriterContent::bringMarksToTheirPlaces() {
    flush();
    for (WriterStory& story : stories_) {
        for (const MarkPtr& mark : misplacedMarks(story.map())) {
            MarkWriter::take(*model_, *mark);
            markWriter_.put(*model_, *mark);
        }
    }
}

MarkPtr WriterContent::addMark(const std::string& name, WriterStory& story, Stretch stretch) {
    checkMayEdit();
    word::checkBookmarkName(name);
    auto mark = std::make_shared<MarkRecord>();
    mark->name = name;
    mark->story = &story;
    mark->place = stretch;
    mark->isWritten = false;
    MarkWriter::check(*mark);
    if (const MarkPtr former = marks_.find(name)) removeMark(former);
    story.map().addMark(mark);
    marks_.list(mark);
    settle();
    return mark;
}

void WriterContent::moveMark(MarkRecord& mark, Stretch stretch) {
    checkMayEdit();
    MarkRecord moved = mark;
    moved.place = stretch;
    MarkWriter::check(moved);
    mark.place = stretch;
    settle();
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
    flush();
    recorded_ = snapshot();
    model_->undo->enterUndoContext(toUno(name));
    model_->model->lockControllers();
    isRecording_ = true;
}

void WriterContent::endRecord() {
    if (!isRecording_) return;
    try {
        bringMarksToTheirPlaces();
    } catch (...) {
        leaveRecord();
        throw;
    }
    leaveRecord();
}

void WriterContent::leaveRecord() {
    isRecording_ = false;
    model_->model->unlockControllers();
    model_->undo->leaveUndoContext();
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
        read(ContentOrigin::File);
    }
    recorded_.reset();
    return true;
}

void WriterContent::close() {
    if (!isOpen()) return;
    const DocumentReference document = model_->document;
    typed_.reset();
    needle_.forget();
    for (WriterStory& story : stories_)
        story.forgetCells();
    model_.reset();
    session_->files().close(document);
}

}  // namespace mergeloom::libreoffice
