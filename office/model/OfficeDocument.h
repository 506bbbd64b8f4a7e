#pragma once

#include "base/AutomationError.h"
#include "office/model/Object.h"

#include <source_location>
#include <string>
#include <utility>

namespace mergeloom::model {

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

    /// Undoes the last steps. Returns false when there was nothing to undo.
    virtual bool Undo(int times) = 0;
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

}  // namespace mergeloom::model
