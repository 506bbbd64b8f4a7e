#pragma once

#include "office/model/HostLook.h"
#include "office/model/excel/Forward.h"
#include "office/model/word/Forward.h"

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace mergeloom {

/// The kinds of documents: Word's documents and Excel's workbooks.
enum class DocumentKind { Word, Excel };

/// A native window of this program in which an office shows its document. Sizes are in pixels of the screen.
struct HostWindow {
    std::uint64_t id = 0;  ///< the window system's: an X11 window
    int width = 0;
    int height = 0;
    HostLook look;
    /// The window that receives the keyboard with a click outside the document.
    std::uint64_t keyboardId = 0;
};

/// A place in the host's window, in pixels from its upper left corner.
struct HostPoint {
    int x = 0;
    int y = 0;
};

/// The ways to open a file: to change it, to read it, or as a document of its own that was never saved.
enum class FileAccess { Edit, ReadOnly, Copy };

/// Commands of the office's own menus, bars and keys that the window carries out itself.
enum class HostCommand { New, Open, Save, SaveAs, Close, PrintPreview };

/// Keys that belong to the window while the document has the keyboard: F1, F6, Shift+F6 and F5, and during a
/// preview Alt+Right and Alt+Left.
enum class HostKey { Help, NextPart, PreviousPart, Preview, NextRecord, PreviousRecord };

/// Receives the office's events. It is called by threads of the office, which wait meanwhile: it must neither
/// call the host nor wait for anything that does.
class HostListener {
  public:
    virtual ~HostListener() = default;

    virtual void fileCommand(HostCommand command) = 0;
    /// Called when the user pressed the key in the document, which does not receive it.
    virtual void keyPressed(HostKey key) = 0;
    /// Called when the document that is shown got its first change since it was saved, or has none any more.
    virtual void changesBeganOrEnded() = 0;
    /// Called after the first painting since DocumentHost::updateMarks, since the marks of places may be in a
    /// wrong place then. Not called if the office draws the marks itself.
    virtual void marksMayHaveMoved() = 0;
    /// Called once when the office ended by itself. From then on every call of the host and its documents
    /// raises kNotAvailable.
    virtual void officeEnded() = 0;
};

/// The hosted document: none, a Word document or an Excel workbook.
using HostedDocument = std::variant<std::monostate, word::DocumentPtr, excel::WorkbookPtr>;

/// An office that shows one document in a window of this program, with its own menus and bars, where the user
/// edits it. Its members may be called by any thread, one at a time. All raise kNotAvailable when the office
/// has ended.
class DocumentHost {
  public:
    /// Closes the document unsaved and ends the office.
    virtual ~DocumentHost() = default;

    /// Replaces the document by a new, empty one of a program identifier: "Word.Template.8", "Word.Template",
    /// "Word.Template.12" or "Excel.Template". Raises kCommandFailed for one that the office does not know.
    virtual void CreateNew(const std::string& programIdentifier) = 0;
    /// Replaces the document by a file. Raises kFileCouldNotBeRead with a sentence that names the file, or
    /// model::PasswordRequired if the password is wrong, and keeps the former document in both cases. All
    /// files that are written of the document have the password, unless it is empty.
    virtual void Open(const std::string& path, FileAccess access, const std::string& password) = 0;
    virtual HostedDocument ActiveDocument() = 0;
    /// Returns true if the office shows a dialog that the user has to close before anything else is done.
    virtual bool hasOpenDialog() = 0;
    /// Takes over what the user is still typing into a cell, which is no change of the workbook before.
    virtual void endInput() = 0;
    /// Returns true if the document has a password, and files of the format (WdSaveFormat's or XlFileFormat's
    /// number) have none.
    virtual bool losesPassword(int format) = 0;
    /// Returns true if the user cannot change the document.
    virtual bool isReadOnly() = 0;
    /// Writes a copy of the document in a format (WdSaveFormat's or XlFileFormat's number). The document, its
    /// name and its mark Saved do not change. Raises kFileCouldNotBeSaved or kNotAvailable with a sentence
    /// that names the file, and leaves an existing file whole.
    virtual void ExportCopy(const std::string& path, int format) = 0;
    /// Returns the document as it is now, as a docx or xlsx, and writes no file of the user's. The document,
    /// its name and its mark Saved do not change. Raises the errors of ExportCopy.
    virtual std::string exportedPackage() = 0;
    /// Shows the bytes of a docx or xlsx for reading over the document, in place of the preview before. The
    /// document stays open with its list of undo steps, and all other members still mean the document, except
    /// focus and resize. Raises kFileCouldNotBeRead.
    virtual void showPreview(DocumentKind kind, const std::string& bytes) = 0;
    /// Shows the document again; does nothing without a preview.
    virtual void endPreview() = 0;
    /// Returns true if the document has changes that neither a save nor keepCopy has written.
    virtual bool hasChangesToKeep() = 0;
    /// Writes a copy of the document in the office's own format, which loses nothing. The document, its name
    /// and its mark Saved do not change. Raises the errors of ExportCopy.
    virtual void keepCopy(const std::string& path) = 0;

    /// Returns the names of the document's places: bookmarks, or the names of a workbook. Without hidden
    /// ones.
    virtual std::vector<std::string> placeNames() = 0;
    /// Returns the names of the places at a point of the window, without moving the caret. There are several
    /// names for a cell, and for equal texts in equal paragraphs.
    virtual std::vector<std::string> placesAt(HostPoint point) = 0;
    /// Selects a place and shows it. This member and the two below raise kCommandFailed with a sentence when
    /// there is no such place, and the next one when it cannot have the name. The user can undo changes.
    virtual void showPlace(const std::string& name) = 0;
    virtual void renamePlace(const std::string& name, const std::string& newName) = 0;
    /// Removes the name; the text or the cells stay.
    virtual void removePlace(const std::string& name) = 0;

    /// Bracket the use of the object model, since the user edits the document without it: between these two
    /// calls the model knows the current document and its selection is the view's. The first copies the
    /// view's selection and locks the view, the second unlocks it and shows the model's selection. Between
    /// them the window takes neither keys nor clicks.
    virtual void beginEditing() = 0;
    virtual void endEditing() = 0;

    /// Shows where a drop at the point would go while a drag hovers there: by a line in a text, whose
    /// selection stays, and by the cell cursor in a workbook. Scrolls the document when the point is near one
    /// of its edges, and shows the sheet over whose tab the point is; called again and again while the drag
    /// rests.
    virtual void showDropPlace(HostPoint point) = 0;
    virtual void hideDropPlace() = 0;
    /// Puts the caret or the cell cursor at the point as a click would. Keeps the selection when the point is
    /// in selected text. Returns false, and moves nothing, when no text and no cell is there.
    virtual bool placeCaret(HostPoint point) = 0;
    virtual void resize(int width, int height) = 0;
    /// Gives the keyboard to the document, unless the user has left it again. An office may need long for
    /// it, so isWanted is called several times, on the caller's thread.
    virtual void focus(const std::function<bool()>& isWanted) = 0;
    /// Does the same after another window had the keyboard, unless the user had left the document before or a
    /// dialog of the office is open.
    virtual void focusAgain(const std::function<bool()>& isWanted) = 0;
    /// Begins the opening of a document or of a preview, which ends with focusOpened. CreateNew and Open also
    /// begin one; the start of an office belongs to that of its first document.
    virtual void beginOpening() = 0;
    /// Gives the keyboard to what was opened, unless the user has clicked beside it meanwhile.
    virtual void focusOpened() = 0;

    /// Returns true when the view marks bookmarks (Word's View.ShowBookmarks).
    virtual bool showsBookmarks() = 0;
    /// Marks bookmarks and the cells with names, or no places.
    virtual void setShowsBookmarks(bool shown) = 0;
    /// Moves the marks of places to the present places; does nothing if the office draws them itself.
    virtual void updateMarks() = 0;
    /// Gives the office the colors and the font of the desktop, which have changed. The sizes follow with the
    /// next start. Returns false, and changes nothing, while a dialog is open that the user has to close.
    virtual bool setLook(const HostLook& look) = 0;
    /// Sets the zoom, or less where the window is not as wide as a page of that size.
    virtual void setZoom(int percent) = 0;
    /// Shows or hides a bar by Word's own name for it: "Standard", "Formatting", "Web". Ignores a bar that
    /// the office does not have.
    virtual void setCommandBarVisible(const std::string& name, bool visible) = 0;
    /// Returns true when the user allows text to be dragged into the document (Word's
    /// Options.AllowDragAndDrop).
    virtual bool allowsDragAndDrop() = 0;
    /// Returns the office's own build number.
    virtual std::string build() = 0;
};

}  // namespace mergeloom
