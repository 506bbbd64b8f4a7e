#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/ContentReader.h"
#include "office/libreoffice/word/MarkWriter.h"
#include "office/opc/DocumentProtection.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

/// Whether a document was made empty or read from a file.
enum class ContentOrigin { Empty, File };

/// What a document of Writer's holds, and all changes of it. What is known of stories, tables and bookmarks
/// is kept here and moved with each edit, for Writer takes a call to answer each question. Nobody else edits
/// a document that has no window; where one is shown to a user, what is known has to be forgotten in time.
class WriterContent : public std::enable_shared_from_this<WriterContent> {
  public:
    WriterContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files, DocumentReference document,
                  ContentOrigin origin);

    /// Everything that reaches Writer goes through this; see OfficeConnection::call.
    template <typename Call>
    auto call(const Call& body) -> decltype(body()) {
        return callOutside([&] {
            if (!isKnown_) read(origin_);
            return body();
        });
    }
    /// The same for what needs to know nothing of what the document holds.
    template <typename Call>
    auto callOutside(const Call& body) -> decltype(body()) {
        return session_->connection().call([&] {
            checkIsOpen();
            return body();
        });
    }

    /// What the file that the document was read from forbids. Writer shows it to its user, but edits all the
    /// same when a program asks.
    void setProtection(const std::string& fileName, opc::DocumentProtection protection);
    /// Raises kNotAvailable for a protected document; to be called before every change.
    void checkMayEdit() const;

    /// Somebody else may change the document: it is read anew when something is asked of it.
    void forget();

    [[nodiscard]] LibreOfficeSession& session() { return *session_; }
    [[nodiscard]] FileStore& files() { return files_; }
    [[nodiscard]] const WriterModel& model() const { return *model_; }
    [[nodiscard]] MarkTable& marks() { return marks_; }
    /// The cursor, once what was typed has reached Writer.
    [[nodiscard]] Needle& needle();
    [[nodiscard]] std::deque<WriterStory>& stories() { return stories_; }
    [[nodiscard]] WriterStory& body() { return stories_.front(); }
    /// Raises kMemberNotFound when there is none of that name.
    WriterStory& storyNamed(const std::string& name);

    [[nodiscard]] const std::shared_ptr<LiveStretch>& selection() const { return selection_; }
    void select(const LiveStretch& stretch);
    /// A stretch of its own that lives through edits.
    std::shared_ptr<LiveStretch> live(WriterStory& story, CharacterPosition start, CharacterPosition end);

    /// The cursor with the stretch selected, which lies within one of Writer's texts.
    const CursorReference& cursorOver(WriterStory& story, Stretch stretch);

    /// Puts text in whose breaks are Writer's: CR for a paragraph's end, LF for a line's. While a record
    /// runs, texts that follow one another go to Writer together.
    void type(WriterStory& story, CharacterPosition position, const std::string& text);
    /// Lets what was typed reach Writer.
    void flush();

    /// To be called after every change of the text; brings Writer's bookmarks to their places unless a record
    /// runs, whose end does it once for all.
    void settle();
    /// Where Writer has a bookmark elsewhere than Word would.
    void bringMarksToTheirPlaces();

    MarkPtr addMark(const std::string& name, WriterStory& story, Stretch stretch);
    void moveMark(MarkRecord& mark, Stretch stretch);
    void removeMark(const MarkPtr& mark);

    void startRecord(const std::string& name);
    void endRecord();
    bool undo(int times);

    void close();
    [[nodiscard]] bool isOpen() const { return model_.has_value(); }

  private:
    struct Snapshot {
        std::vector<std::shared_ptr<const StoryMap::State>> stories;
        std::vector<MarkPtr> marks;
        LiveStretch selection;
    };

    /// Typed text that Writer does not have yet, and where it goes there.
    struct TypedText {
        WriterStory* story = nullptr;
        CharacterPosition end;
        NeedleText way;
        std::int64_t steps = 0;
        OUString text;
        std::int64_t textSteps = 0;
    };

    void read(ContentOrigin origin);
    void checkIsOpen() const;
    [[nodiscard]] Snapshot snapshot();
    void restore(const Snapshot& snapshot);
    void leaveRecord();

    std::shared_ptr<LibreOfficeSession> session_;
    FileStore& files_;
    ContentOrigin origin_;
    std::optional<WriterModel> model_;
    std::deque<WriterStory> stories_;
    MarkTable marks_;
    Needle needle_;
    MarkWriter markWriter_{needle_};
    std::optional<TypedText> typed_;
    std::shared_ptr<LiveStretch> selection_ = std::make_shared<LiveStretch>();
    std::optional<Snapshot> recorded_;  ///< before the step that was recorded last
    std::string fileName_;
    opc::DocumentProtection protection_ = opc::DocumentProtection::None;
    bool isKnown_ = false;  ///< what the document holds
    bool isRecording_ = false;
    bool isWatched_ = false;  ///< whether the selection's story keeps it true
};

}  // namespace mergeloom::libreoffice
