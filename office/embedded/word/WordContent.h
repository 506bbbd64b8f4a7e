#pragma once

#include "base/FileStore.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/text/TrackedRange.h"
#include "office/embedded/word/EditPermission.h"
#include "office/embedded/word/EditableStory.h"
#include "office/embedded/word/Fallbacks.h"
#include "office/opc/Package.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// Whether new text may join the run that it comes in behind. Typing does, lest each key made a run; what a
/// range writes gets runs of its own, which a bookmark around it then need not split off.
enum class RunUse { Shared, Own };

/// What is in a Word document while it is open: its package, the stories of its parts, the bookmarks over all
/// of them and the selection. Ranges and bookmarks handed out share it, so it lives as long as any of them.
class WordContent {
  public:
    /// Reads the main part, headers, footers, notes and comments. Raises kFileCouldNotBeRead for a package
    /// that is no Word document or that cannot be edited safely.
    /// Pictures are read from the file store, which has to outlive the content.
    WordContent(opc::Package package, FileStore& files);
    WordContent(const WordContent&) = delete;
    WordContent& operator=(const WordContent&) = delete;

    [[nodiscard]] opc::Package& package() { return package_; }
    [[nodiscard]] BookmarkTable& bookmarks() { return bookmarks_; }
    [[nodiscard]] EditJournal& journal() { return journal_; }
    [[nodiscard]] TrackedRange& selection() { return *selection_; }
    [[nodiscard]] EditableStory& body() { return stories_.front(); }
    [[nodiscard]] EditableStory& editable(const Story& story);
    /// Every story has a name of its own. Raises kMemberNotFound for a name that none has.
    [[nodiscard]] Story& storyNamed(const std::string& name);

    [[nodiscard]] std::vector<Story*> stories();
    /// Whether the document defines a style of that id.
    [[nodiscard]] bool hasStyle(const std::string& styleId);

    /// Replaces the text of a stretch, in the formatting of its first text; answers how many characters came
    /// in.
    CharacterCount replace(Story& story, CharacterPosition start, CharacterPosition end,
                           const std::string& text, RunUse runs = RunUse::Shared);
    /// Returns the place before the last paragraph mark of a story. A story whose last paragraph is inside
    /// something else gets another one for that; errors as for beginEdit.
    CharacterPosition endOf(Story& story);
    /// Replaces a stretch by a picture in the text, one character; answers that count. The formats and errors
    /// are those of PictureFile.
    CharacterCount replaceByPicture(Story& story, CharacterPosition start, CharacterPosition end,
                                    const std::string& fileName);
    /// Marks a stretch; a bookmark of that name anywhere in the document moves here.
    BookmarkRecord& addBookmark(const std::string& name, Story& story, CharacterPosition start,
                                CharacterPosition end);

    /// One recorded step at a time can be taken back, together with the selection.
    void startRecord();
    void stopRecord() { journal_.stop(); }
    bool undo();

    [[nodiscard]] bool isSaved() const { return saved_; }
    void setSaved(bool saved) { saved_ = saved; }
    /// Says that an edit begins which replaces the text of a stretch, or moves or adds marks at its ends.
    /// Raises kNotAvailable where the document is protected against it.
    void beginEdit(const Story& story, CharacterPosition start, CharacterPosition end);
    void beginMarking(const Story& story, CharacterPosition start, CharacterPosition end);

    /// Hands the parts that were edited to the package, which can be written then.
    void storeParts();

  private:
    /// A relationship to a picture that came in while a step was recorded.
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

    void loadPart(const std::string& partName, const std::string& kind);
    void loadRelated(const std::string& mainPart, const std::string& type, const std::string& kind);
    void loadStories(EditablePart& part, const std::string& kind);
    void addStory(EditablePart& part, pugi::xml_node root, const std::string& name);
    void readIds(const EditablePart& part);
    /// The bookmarks that start right behind a stretch that is about to be replaced. What replaces it stands
    /// where the stretch stood and does not fall into them.
    static std::vector<BookmarkRecord*> startingBehind(EditableStory& target, CharacterPosition start,
                                                       CharacterPosition end);
    static void keepBehind(EditableStory& target, const std::vector<BookmarkRecord*>& records,
                           CharacterPosition start, CharacterCount inserted);
    std::string addPicturePart(const std::string& documentPart, std::string bytes,
                               const opc::PictureFile& picture);
    void removeAddedPictures();
    [[nodiscard]] bool isShown(const std::string& picturePart);

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
    std::vector<opc::XmlPart*> stored_;  // since a step was recorded
    std::int64_t highestId_ = -1;        // of bookmarks, tracked changes and comments, which share their ids
    std::int64_t highestDrawingId_ = 0;
    int textBoxes_ = 0;
    std::optional<std::string> styles_;  // the part's XML, read when it is asked for first
    bool saved_ = true;
};

}  // namespace mergeloom::embedded
