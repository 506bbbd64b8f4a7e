#pragma once

#include "base/AutomationError.h"
#include "office/model/Object.h"

#include <optional>
#include <source_location>
#include <string>
#include <utility>

namespace mergeloom::model {

/// The entries of a saved package, for a message.
struct KeptEntries {
    int unchanged = 0;
    int all = 0;
};

/// One open document: a Word document or an Excel workbook.
class OfficeDocument : public Object {
  public:
    /// Returns the file's name without its folder, or the name of a document that was never saved.
    virtual std::string Name() = 0;
    virtual std::string FullName() = 0;
    /// Returns the mark that every change of the document clears.
    virtual bool Saved() = 0;
    virtual void SetSaved(bool saved) = 0;

    /// Raises kFileCouldNotBeSaved, with a sentence that gives the reason, and leaves an existing file whole.
    virtual void Save() = 0;

    /// Begins work for a later save of a changed document and does not wait for its end. An office may ignore
    /// the call.
    virtual void prepareSave() {}
    /// Sets the original of a document that was opened from a copy; saves repeat the changes on it. Does
    /// nothing in an office whose saves lose nothing. Raises kFileCouldNotBeRead.
    virtual void useOriginal(const std::string& path) { static_cast<void>(path); }
    /// Lets all later saves write the office's own export, with the losses of LossySave.
    virtual void giveUpOriginal() {}
    /// Returns the number of entries of the original's package that the last save kept byte for byte. Returns
    /// none if the save had no original.
    virtual std::optional<KeptEntries> keptEntries() { return {}; }

    /// Undoes the last steps. Returns false when there was nothing to undo.
    virtual bool Undo(int times) = 0;
    /// Stops the recording of steps for Undo, which saves memory. For documents that are closed unsaved after
    /// a failed change. An office may ignore the call.
    virtual void giveUpUndo() {}
};

/// Raised by a save that would have written something other than the document holds. An existing file stays;
/// the bytes that were not written can be kept elsewhere.
class DifferingCopy final : public AutomationError {
  public:
    DifferingCopy(const std::string& sentence, std::string bytes,
                  const std::source_location& place = std::source_location::current())
        : AutomationError(kFileCouldNotBeSaved, sentence, place), bytes_(std::move(bytes)) {}

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// Raised by a save that could not repeat the changes on the original file. No file was written. Contains the
/// bytes of the office's own export.
class LossySave final : public AutomationError {
  public:
    LossySave(const std::string& sentence, std::string bytes,
              const std::source_location& place = std::source_location::current())
        : AutomationError(kFileCouldNotBeSaved, sentence, place), bytes_(std::move(bytes)) {}

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

}  // namespace mergeloom::model
