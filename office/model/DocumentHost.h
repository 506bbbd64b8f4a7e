#pragma once

#include "office/model/DocumentKind.h"
#include "office/model/excel/Forward.h"
#include "office/model/word/Forward.h"

#include <cstdint>
#include <string>
#include <variant>

namespace mergeloom {

/// A native window of ours in which an office shows its document; sizes are in pixels of the screen.
struct HostWindow {
    std::uint64_t id = 0;  ///< of the window system: an X11 window
    int width = 0;
    int height = 0;
};

/// A place in the host's window, in pixels from its upper left corner.
struct HostPoint {
    int x = 0;
    int y = 0;
};

/// What the office's own menus, bars and keys ask for and the window answers itself.
enum class HostCommand { New, Open, Save, SaveAs, Close, PrintPreview };

/// Hears of the office. It is called by threads of the office, which wait meanwhile: it must neither call the
/// host nor wait for anything that does.
class HostListener {
  public:
    HostListener() = default;
    HostListener(const HostListener&) = delete;
    HostListener& operator=(const HostListener&) = delete;
    virtual ~HostListener() = default;

    virtual void fileCommand(HostCommand command) = 0;
    /// The office ended without having been asked to. Told once; from here on every call of the host and its
    /// documents raises kNotAvailable.
    virtual void officeEnded() = 0;
};

/// The document that is hosted: none, a Word document or an Excel workbook.
using HostedDocument = std::variant<std::monostate, word::DocumentPtr, excel::WorkbookPtr>;

/// An office that shows one document in a window of ours, with its own menus and bars, where the user edits
/// it. Its members may be called by any thread, by one at a time. All raise kNotAvailable when the office has
/// ended.
class DocumentHost {
  public:
    DocumentHost() = default;
    DocumentHost(const DocumentHost&) = delete;
    DocumentHost& operator=(const DocumentHost&) = delete;
    /// Closes the document unsaved and ends the office.
    virtual ~DocumentHost() = default;

    /// Shows a new, empty document of a program identifier in place of the former one: "Word.Template.8",
    /// "Word.Template", "Word.Template.12" or "Excel.Template". Raises kCommandFailed for one that the office
    /// does not know.
    virtual void CreateNew(const std::string& programIdentifier) = 0;
    /// Shows a file in place of the former document. Raises kFileCouldNotBeRead with a sentence that names
    /// the file; the former document stays then.
    virtual void Open(const std::string& path) = 0;
    virtual HostedDocument ActiveDocument() = 0;

    /// The user edits the document behind the back of the object model: between these two calls it knows the
    /// document as it is and its selection is the view's. The first takes the view's selection over and locks
    /// the view, the second unlocks it and shows the selection that the model has then.
    virtual void beginEditing() = 0;
    virtual void endEditing() = 0;

    /// Puts the caret or the cell cursor at the point as a click would; false, and nothing is moved, when no
    /// text and no cell is there.
    virtual bool placeCaret(HostPoint point) = 0;
    /// While disabled, the window takes neither keys nor clicks.
    virtual void setEnabled(bool enabled) = 0;
    virtual void resize(int width, int height) = 0;
    /// Gives the keyboard to the document.
    virtual void focus() = 0;

    /// Whether the view marks bookmarks (Word's View.ShowBookmarks).
    virtual bool showsBookmarks() = 0;
    virtual void setShowsBookmarks(bool shown) = 0;
    virtual void setZoom(int percent) = 0;
    /// Shows or hides a bar under Word's own name for it: "Standard", "Formatting", "Web". A bar that the
    /// office does not have is passed over.
    virtual void setCommandBarVisible(const std::string& name, bool visible) = 0;
    /// Whether the user lets text be dragged into the document (Word's Options.AllowDragAndDrop).
    virtual bool allowsDragAndDrop() = 0;
    /// The office's own build number.
    virtual std::string build() = 0;
};

}  // namespace mergeloom
