#include "office/embedded/word/WordContent.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/embedded/text/ReplacementContext.h"
#include "office/embedded/word/InlinePicture.h"
#include "office/embedded/word/TextArea.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The limit below which ids count for the next free one: some programs use random ids near the top of 32
/// bits, above which no room is left.
constexpr std::int64_t kMaxOrdinaryId = 1'000'000'000;

bool containsStories(const std::string& kind) {
    return kind == "footnote" || kind == "endnote" || kind == "comment";
}

[[noreturn]] void refuse(const std::string& fileName, const std::string& why) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + fileName + "' " + why);
}

void checkKind(opc::Package& package, const std::string& mainPart) {
    const std::string type = package.contentTypes().of(mainPart);
    const bool isWord =
        type.find("wordprocessingml") != std::string::npos || type.find("ms-word") != std::string::npos;
    if (!isWord) refuse(package.fileName(), "is not a Word document.");
    if (package.isSigned()) {
        refuse(package.fileName(), "is digitally signed; a change would make the signature invalid.");
    }
}

std::int64_t numberOf(const char* text) {
    char* end = nullptr;
    const std::int64_t number = std::strtoll(text, &end, 10);
    return end != text && *end == '\0' && number < kMaxOrdinaryId ? number : -1;
}

/// Returns the element after a node in document order, within the root.
pugi::xml_node nextInOrder(pugi::xml_node node, pugi::xml_node root) {
    if (node.first_child()) return node.first_child();
    while (node != root && !node.next_sibling())
        node = node.parent();
    return node == root ? pugi::xml_node() : node.next_sibling();
}

}  // namespace

WordContent::WordContent(opc::Package package, FileStore& files)
    : package_(std::move(package)), files_(files) {
    const std::string mainPart = package_.mainPart();
    checkKind(package_, mainPart);
    loadPart(mainPart, "body");
    for (const char* kind : {"header", "footer"})
        loadRelated(mainPart, kind, kind);
    loadRelated(mainPart, "footnotes", "footnote");
    loadRelated(mainPart, "endnotes", "endnote");
    loadRelated(mainPart, "comments", "comment");
    selection_.emplace(body().story, CharacterPosition{0}, CharacterPosition{0});
}

EditableStory& WordContent::editable(const Story& story) {
    // Most edits are in the body.
    if (&body().story == &story) return body();
    const auto isIt = [&](EditableStory& candidate) { return &candidate.story == &story; };
    return *std::find_if(stories_.begin(), stories_.end(), isIt);
}

Story& WordContent::storyNamed(const std::string& name) {
    const auto isIt = [&](EditableStory& candidate) { return candidate.story.name() == name; };
    const auto found = std::find_if(stories_.begin(), stories_.end(), isIt);
    if (found == stories_.end()) throw AutomationError(kMemberNotFound, "There is no story '" + name + "'.");
    return found->story;
}

std::vector<Story*> WordContent::stories() {
    std::vector<Story*> all;
    all.reserve(stories_.size());
    for (EditableStory& editable : stories_)
        all.push_back(&editable.story);
    return all;
}

bool WordContent::hasStyle(const std::string& styleId) {
    if (!styles_) {
        const std::string part = package_.relatedPart(package_.mainPart(), "styles");
        styles_ = part.empty() ? "" : package_.readPart(part);
    }
    return styles_->find("styleId=\"" + styleId + "\"") != std::string::npos;
}

CharacterCount WordContent::replace(Story& story, CharacterPosition start, CharacterPosition end,
                                    const std::string& text, RunUse runs) {
    story.check(start, end);
    if (start == end) return insert(story, start, text, runs);
    const ReplacementContext replaced(story, start, end);
    if (!text.empty()) replaced.checkNotDeleted();
    EditableStory& target = editable(story);
    // A refused change must not count as an edit.
    target.eraser.check(start, end);
    beginEdit(story, start, end);
    fallbacks_.noteEdit(story, start);
    TextSetting setting = replaced.setting();
    if (!setting.formatting && runs == RunUse::Own) {
        setting.formatting = target.editor.formattingAtPlace(start);
    }
    const std::vector<BookmarkRecord*> following = startingAfter(target, start, end);
    target.eraser.erase(start, end);
    const CharacterCount inserted = target.editor.insertText(start, text, setting);
    keepAfter(target, following, start, inserted);
    return inserted;
}

CharacterCount WordContent::insert(Story& story, CharacterPosition position, const std::string& text,
                                   RunUse runs) {
    beginEdit(story, position, position);
    fallbacks_.noteEdit(story, position);
    StoryEditor& editor = editable(story).editor;
    TextSetting setting;
    if (runs == RunUse::Own) setting.formatting = editor.formattingAtPlace(position);
    return editor.insertText(position, text, setting);
}

CharacterPosition WordContent::endOf(Story& story) {
    StoryEditor& editor = editable(story).editor;
    if (!editor.endsWithOwnParagraph()) {
        // The last paragraph's content control does not change, so its lock does not matter.
        const CharacterPosition end{story.length().value};
        beginEdit(story, end, end);
        editor.appendParagraph();
    }
    return CharacterPosition{story.length().value - 1};
}

std::vector<BookmarkRecord*> WordContent::startingAfter(EditableStory& target, CharacterPosition start,
                                                        CharacterPosition end) {
    if (start == end) return {};
    std::vector<BookmarkRecord*> found = target.bookmarks.in(end, end);
    std::erase_if(found, [&](const auto* record) { return startOf(*record) != end; });
    return found;
}

void WordContent::keepAfter(EditableStory& target, const std::vector<BookmarkRecord*>& records,
                            CharacterPosition start, CharacterCount inserted) {
    if (inserted.value == 0) return;
    for (BookmarkRecord* record : records) {
        const bool touches = startOf(*record) == start;
        if (touches) target.bookmarks.moveStart(*record, start + inserted);
    }
}

CharacterCount WordContent::replaceByPicture(Story& story, CharacterPosition start, CharacterPosition end,
                                             const std::string& fileName) {
    std::string bytes = files_.read(fileName);
    const opc::PictureFile file = opc::PictureFile::read(bytes, fileName);
    EditableStory& target = editable(story);
    target.eraser.check(start, end);
    beginEdit(story, start, end);
    const std::vector<BookmarkRecord*> following = startingAfter(target, start, end);
    target.eraser.erase(start, end);

    InlinePicture picture;
    picture.name = fileNameOnly(fileName);
    picture.relationshipId = addPicturePart(story.part().partName(), std::move(bytes), file);
    picture.drawingId = ++highestDrawingId_;
    picture.width = file.naturalWidth();
    picture.height = file.naturalHeight();
    fitInto(textAreaWidth(story, start), picture);
    const pugi::xml_node run = target.elementFactory.parse(pictureRunXml(picture, story.names()));
    target.editor.insertObject(start, run, run.last_child());
    keepAfter(target, following, start, {1});
    return {1};
}

std::string WordContent::addPicturePart(const std::string& documentPart, std::string bytes,
                                        const opc::PictureFile& picture) {
    const std::size_t before = package_.relationshipsOf(documentPart).all().size();
    std::string id = pictures_.add(documentPart, std::move(bytes), picture);
    const bool isNew = package_.relationshipsOf(documentPart).all().size() > before;
    if (isNew) addedPictures_.push_back({documentPart, id});
    return id;
}

BookmarkRecord& WordContent::addBookmark(const std::string& name, Story& story, CharacterPosition start,
                                         CharacterPosition end) {
    word::checkBookmarkName(name);
    BookmarkEditor& editor = editable(story).bookmarks;
    editor.check(start, end);
    beginMarking(story, start, end);
    if (BookmarkRecord* former = bookmarks_.find(name)) {
        editable(*former->story).bookmarks.remove(*former);
    }
    return editor.add(name, ++highestId_, start, end);
}

void WordContent::beginEdit(const Story& story, CharacterPosition start, CharacterPosition end) {
    permission_.checkText(story, start, end);
    saved_ = false;
}

void WordContent::beginMarking(const Story& story, CharacterPosition start, CharacterPosition end) {
    permission_.checkMarks(story, start, end);
    saved_ = false;
}

void WordContent::startRecord() {
    if (!keepsUndo_) return;
    journal_.start();
    addedPictures_.clear();
    stored_.clear();
    recorded_ = {&selection_->story(), selection_->start(), selection_->end(), saved_};
}

bool WordContent::stopRecord() {
    journal_.stop();
    return !journal_.isEmpty();
}

bool WordContent::undo() {
    journal_.stop();
    if (journal_.isEmpty() || !recorded_) return false;
    journal_.undo();
    for (const AddedPicture& added : addedPictures_)
        static_cast<void>(pictures_.release(added.documentPart, added.relationshipId));
    addedPictures_.clear();
    for (EditableStory& editable : stories_)
        editable.story.clampTrackedRanges();
    selection_->moveTo(*recorded_->story, recorded_->start, recorded_->end);
    // The package contains the undone changes of parts that were stored meanwhile.
    for (opc::XmlPart* part : stored_)
        part->setDirty(true);
    saved_ = recorded_->saved && stored_.empty();
    return true;
}

void WordContent::storeParts() {
    for (EditablePart& editable : parts_) {
        if (!editable.part->isDirty()) continue;
        fallbacks_.update(*editable.part);
        package_.writePart(editable.part->partName(), editable.part->toXml(expectedSizeOf(*editable.part)));
        editable.part->setDirty(false);
        stored_.push_back(editable.part.get());
    }
}

std::size_t WordContent::expectedSizeOf(const opc::XmlPart& part) const {
    std::size_t size = 0;
    for (const EditableStory& editable : stories_) {
        if (&editable.story.part() == &part) size += editable.story.expectedXmlSize();
    }
    return size;
}

void WordContent::loadRelated(const std::string& mainPart, const std::string& type, const std::string& kind) {
    std::vector<std::string> partNames;
    opc::Relationships& relationships = package_.relationshipsOf(mainPart);
    for (const opc::Relationship* relationship : relationships.ofOfficeType(type)) {
        const std::string partName = relationships.targetPart(*relationship);
        const bool isNew = std::find(partNames.begin(), partNames.end(), partName) == partNames.end();
        if (isNew && package_.hasPart(partName)) partNames.push_back(partName);
    }
    int number = 0;
    for (const std::string& partName : partNames) {
        loadPart(partName, containsStories(kind) ? kind : kind + " " + std::to_string(++number));
    }
}

void WordContent::loadPart(const std::string& partName, const std::string& kind) {
    parts_.emplace_back(opc::XmlPart::parse(package_.readPart(partName), partName, package_.fileName()));
    readIds(parts_.back());
    loadStories(parts_.back(), kind);
}

void WordContent::loadStories(EditablePart& part, const std::string& kind) {
    const pugi::xml_node root = part.part->root();
    if (kind == "body") {
        const pugi::xml_node body = root.child(part.names.element("body").c_str());
        if (!body) refuse(package_.fileName(), "is damaged: its main part has no body.");
        return addStory(part, body, kind);
    }
    if (!containsStories(kind)) return addStory(part, root, kind);
    const std::string element = part.names.element(kind);
    int number = 0;
    for (const pugi::xml_node story : root.children(element.c_str())) {
        // The separators between text and notes are notes, too, but contain no text of the user.
        const std::string_view type = part.names.value(story, "type");
        if (!type.empty() && type != "normal") continue;
        addStory(part, story, kind + " " + std::to_string(++number));
    }
}

void WordContent::addStory(EditablePart& part, pugi::xml_node root, const std::string& name) {
    stories_.emplace_back(part, root, name, bookmarks_, journal_);
    // A copy: reading the story of a text box may add to the stories.
    const std::vector<pugi::xml_node> inside = stories_.back().story.textBoxes();
    for (const pugi::xml_node textBox : inside) {
        addStory(part, textBox, "text box " + std::to_string(++textBoxes_));
    }
}

void WordContent::readIds(const EditablePart& part) {
    const std::string id = part.names.attribute("id");
    const pugi::xml_node root = part.part->root();
    for (pugi::xml_node node = root; node; node = nextInOrder(node, root)) {
        if (node.type() != pugi::node_element) continue;
        if (const pugi::xml_attribute attribute = node.attribute(id.c_str())) {
            highestId_ = std::max(highestId_, numberOf(attribute.value()));
        }
        if (std::string_view(node.name()).ends_with(":docPr")) {
            highestDrawingId_ = std::max(highestDrawingId_, numberOf(node.attribute("id").value()));
        }
    }
}

}  // namespace mergeloom::embedded
