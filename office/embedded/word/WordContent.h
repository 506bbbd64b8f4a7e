#pragma once

#include "base/FileStore.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/text/EditableStory.h"
#include "office/embedded/word/EditPermission.h"
#include "office/embedded/word/Fallbacks.h"
#include "office/opc/Package.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// The runs for new text. Typed text is appended to the run before it, so that not each key creates a run;
/// text set through a range gets runs of its own, which a bookmark around the range need not split.
enum class RunUse { Shared, Own };

/// The content of an open Word document: its package, the stories of its parts, all their bookmarks and the
/// selection. The ranges and bookmarks of the object model share it.
class WordContent {
  public:
    /// Reads the main part, headers, footers, notes and comments. Raises kFileCouldNotBeRead for a package
    /// that is no Word document or cannot be edited safely. Pictures are read from the file store, which must
    /// outlive this object.
    WordContent(opc::Package package, FileStore& files);
    WordContent(const WordContent&) = delete;
    WordContent& operator=(const WordContent&) = delete;

    [[nodiscard]] opc::Package& package() { return package_; }
    [[nodiscard]] BookmarkTable& bookmarks() { return bookmarks_; }
    [[nodiscard]] TrackedRange& selection() { return *selection_; }
    [[nodiscard]] EditableStory& body() { return stories_.front(); }
    [[nodiscard]] EditableStory& editable(const Story& story);
    /// Returns the story with a name, which is unique. Raises kMemberNotFound if there is none.
    [[nodiscard]] Story& storyNamed(const std::string& name);

    [[nodiscard]] std::vector<Story*> stories();
    /// Returns true if the document defines a style with that id.
    [[nodiscard]] bool hasStyle(const std::string& styleId);

    /// Replaces the text between two positions, with the formatting of the first of it. Returns how many
    /// characters were inserted.
    CharacterCount replace(Story& story, CharacterPosition start, CharacterPosition end,
                           const std::string& text, RunUse runs = RunUse::Shared);
    /// Returns the position before the last paragraph mark of a story. Appends a paragraph if the last one is
    /// inside a table or a content control. Raises the errors of beginEdit.
    CharacterPosition endOf(Story& story);
    /// Replaces the text between two positions by an inline picture, one character; returns that count. The
    /// formats and errors are those of PictureFile.
    CharacterCount replaceByPicture(Story& story, CharacterPosition start, CharacterPosition end,
                                    const std::string& fileName);
    /// Adds a bookmark, or moves the one with that name here.
    BookmarkRecord& addBookmark(const std::string& name, Story& story, CharacterPosition start,
                                CharacterPosition end);

    /// Record a step, which undo() reverts together with the selection. Only the last step can be undone.
    /// stopRecord() returns true when the step has changes.
    void startRecord();
    bool stopRecord();
    bool undo();
    /// Stops the recording of steps for Undo.
    void giveUpUndo() { keepsUndo_ = false; }

    [[nodiscard]] bool isSaved() const { return saved_; }
    void setSaved(bool saved) { saved_ = saved; }
    /// Begin an edit that replaces the text between two positions, or that moves or adds marks there. Raise
    /// kNotAvailable if the document is protected against it.
    void beginEdit(const Story& story, CharacterPosition start, CharacterPosition end);
    void beginMarking(const Story& story, CharacterPosition start, CharacterPosition end);

    /// Return the highest ids in use: of bookmarks, tracked changes and comments, and of drawn objects.
    [[nodiscard]] std::int64_t highestId() const { return highestId_; }
    [[nodiscard]] std::int64_t highestDrawingId() const { return highestDrawingId_; }

    /// Writes the parts that were edited to the package.
    void storeParts();

  private:
    /// A relationship to a picture that was added while a step was recorded.
    struct AddedPicture {
        std::string documentPart;
        std::string relationshipId;
    };
    struct RecordedState {
        Story* story;
        CharacterPosition start;
        CharacterPosition end;
        bool saved;
    };

    [[nodiscard]] std::size_t expectedSizeOf(const opc::XmlPart& part) const;
    void loadPart(const std::string& partName, const std::string& kind);
    void loadRelated(const std::string& mainPart, const std::string& type, const std::string& kind);
    void loadStories(EditablePart& part, const std::string& kind);
    void addStory(EditablePart& part, pugi::xml_node root, const std::string& name);
    void readIds(const EditablePart& part);
    /// Inserts text with the formatting at the position. Returns how many characters were inserted.
    CharacterCount insert(Story& story, CharacterPosition position, const std::string& text, RunUse runs);
    /// Returns the bookmarks that start at the end of a range that is about to be replaced. They must not
    /// include the text that replaces it.
    static std::vector<BookmarkRecord*> startingAfter(EditableStory& target, CharacterPosition start,
                                                      CharacterPosition end);
    static void keepAfter(EditableStory& target, const std::vector<BookmarkRecord*>& records,
                          CharacterPosition start, CharacterCount inserted);
    std::string addPicturePart(const std::string& documentPart, std::string bytes,
                               const opc::PictureFile& picture);

    opc::Package package_;
    FileStore& files_;
    PictureParts pictures_{package_};
    EditPermission permission_{package_};
    BookmarkTable bookmarks_;
    EditJournal journal_;
    Fallbacks fallbacks_{journal_};
    std::deque<EditablePart> parts_;
    std::deque<EditableStory> stories_;
    std::optional<TrackedRange> selection_;
    std::optional<RecordedState> recorded_;
    std::vector<AddedPicture> addedPictures_;
    std::vector<opc::XmlPart*> stored_;  ///< since the recorded step began
    std::int64_t highestId_ = -1;  ///< of bookmarks, tracked changes and comments, which share their ids
    std::int64_t highestDrawingId_ = 0;
    int textBoxes_ = 0;
    std::optional<std::string> styles_;  ///< the part's XML once it was read
    bool saved_ = true;
    bool keepsUndo_ = true;
};

/// A story of an open document, to which most objects of the model belong.
struct StoryPlace {
    std::shared_ptr<WordContent> content;
    Story* story;

    [[nodiscard]] EditableStory& editable() const { return content->editable(*story); }
};

}  // namespace mergeloom::embedded
