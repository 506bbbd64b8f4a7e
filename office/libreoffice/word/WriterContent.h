#pragma once

#include "office/libreoffice/session/UnoErrors.h"
#include "office/libreoffice/word/BookmarkFinder.h"
#include "office/libreoffice/word/StoryTexts.h"
#include "office/libreoffice/word/UndoContext.h"
#include "office/model/word/Forward.h"
#include "office/opc/DocumentProtection.h"

#include <com/sun/star/uno/XComponentContext.hpp>
#include <memory>
#include <optional>
#include <rtl/ref.hxx>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

using RangePtr = std::shared_ptr<TrackedRange>;

/// A removed field whose code Writer's undo does not restore.
struct RemovedField {
    CursorReference place;
    std::string code;
};

/// The state of a Writer document: its selection, its bookmarks and the ranges in it, which Writer itself
/// updates while the document is edited.
class WriterContent : public std::enable_shared_from_this<WriterContent> {
  public:
    WriterContent(const Reference<css::uno::XComponentContext>& office, const DocumentReference& document);
    WriterContent(const WriterContent&) = delete;
    WriterContent& operator=(const WriterContent&) = delete;
    ~WriterContent();

    /// Runs a body that calls Writer. Errors are those of translatingErrors, and kObjectDeleted when the
    /// document is closed.
    template <typename Call>
    auto call(const Call& body) -> decltype(body()) {
        checkIsOpen();
        return translatingErrors(body);
    }

    /// Sets the protection of the document; see DocumentEditor.
    void setProtection(const std::string& fileName, opc::DocumentProtection protection);

    /// Stores the content of a file until takenFile returns it.
    void takeFile(const std::string& fileName, const std::string& content);
    [[nodiscard]] std::string takenFile(const std::string& fileName);

    /// Raises kNotAvailable for a protected document. Must be called before every change.
    void checkMayEdit() const;

    /// Discards what is known of the document, since its user may have changed it.
    void forget();

    [[nodiscard]] const Reference<css::uno::XComponentContext>& office() const { return office_; }
    [[nodiscard]] const WriterModel& model() const { return *model_; }
    [[nodiscard]] BookmarkNames& bookmarkNames() { return bookmarks_->names(); }
    [[nodiscard]] LiveBookmarks& bookmarks() { return *bookmarks_; }
    [[nodiscard]] BookmarkFinder& finder() { return *finder_; }

    /// Returns the text that holds everything of the story that the range is in.
    TextReference storyOf(const RangeReference& range);

    /// Returns the stories of the document, the body first.
    const std::vector<Story>& stories();
    /// Returns the story's name as Range.storyName gives it.
    std::string nameOf(const TextReference& story);

    /// Returns a range of its own that is corrected where Word's ranges live on otherwise than Writer's.
    RangePtr track(TrackedRange range);
    RangePtr copyOf(const TrackedRange& range);

    /// Registers the Writer range of a range of the object model until unlink() is called.
    void link(const word::Range& range, const RangePtr& tracked) { linked_[&range] = tracked; }
    void unlink(const word::Range& range) { linked_.erase(&range); }
    /// Raises kCommandFailed for a range of another document.
    [[nodiscard]] RangePtr linkedTo(const word::Range& range) const;

    /// Moves the ends of other ranges that were where text was inserted back to before that text.
    void holdBack(const TrackedRange& edited, const RangeReference& start, const RangeReference& end);

    /// Remembers that a new table ends where the range starts.
    void notePlaceAfter(const TableReference& table, const TrackedRange& range);
    /// Returns the place after the table in the text that holds it.
    RangeReference placeAfter(const TextReference& story, const TableReference& table);

    [[nodiscard]] RangePtr selection();
    void select(const TrackedRange& range);

    void addBookmark(const std::string& name, const TrackedRange& range);
    void removeBookmark(const std::string& name);

    void noteRemovedField(const CursorReference& place, const std::string& code);

    void startRecord(const std::string& name);
    /// Returns true when anything was changed since the start of the record.
    bool endRecord();
    bool undo(int times);
    /// Releases all of Writer's objects. Some of them end the office when they are called after the document
    /// was closed, so this is also done when the office closes it.
    void close();
    [[nodiscard]] bool isOpen() const { return model_.has_value(); }

  private:
    /// A place, known by the character beside it, which an edit at the place does not touch.
    struct Neighbour {
        CursorReference at;
        bool isBeside = false;  ///< false at the end of the text
    };
    struct Recorded {
        TextReference story;
        Neighbour before;
        Neighbour after;
        Beyond startBeyond = Beyond::Nothing;
        Beyond endBeyond = Beyond::Nothing;
    };

    class CloseListener;

    void checkIsOpen() const;
    [[nodiscard]] static Neighbour neighbourOf(const RangeReference& place, bool isBefore);
    void restoreSelection(const Recorded& recorded);
    void restoreCodes();

    Reference<css::uno::XComponentContext> office_;
    rtl::Reference<CloseListener> closing_;
    std::optional<WriterModel> model_;
    std::optional<LiveBookmarks> bookmarks_;
    std::optional<BookmarkFinder> finder_;
    std::vector<Story> stories_;
    std::vector<std::weak_ptr<TrackedRange>> tracked_;
    std::unordered_map<const word::Range*, RangePtr> linked_;
    RangePtr selection_;
    std::optional<Recorded> recorded_;  ///< what was selected before the step that was recorded last
    std::vector<RemovedField> removedFields_;
    std::optional<std::pair<TableReference, CursorReference>> newTable_;  ///< with a cursor after it
    std::string fileName_;
    opc::DocumentProtection protection_ = opc::DocumentProtection::None;
    std::pair<std::string, std::string> takenFile_;  ///< its name and its content
    std::unique_ptr<UndoContext> recording_;
};

}  // namespace mergeloom::libreoffice
