#pragma once

#include "office/com/automation/KnownNames.h"
#include "office/model/word/Forward.h"

#include <memory>
#include <unordered_map>
#include <utility>

namespace mergeloom::com {

/// The state that the objects of one running Word share: its application, and Word's range for each range of
/// the model.
class ComWordModel {
  public:
    explicit ComWordModel(AutomationObject application) : application_(std::move(application)) {}
    ComWordModel(const ComWordModel&) = delete;
    ComWordModel& operator=(const ComWordModel&) = delete;

    [[nodiscard]] const AutomationObject& application() const { return application_; }
    [[nodiscard]] AutomationSession& session() const { return *application_.session(); }

    void set(const word::Range& range, const DispatchPtr& reference);
    void remove(const word::Range& range);
    /// Returns true if several ranges of the model share this range of Word.
    [[nodiscard]] bool isShared(const DispatchPtr& reference) const;
    /// Raises kCommandFailed for a range of another office.
    [[nodiscard]] DispatchPtr referenceOf(const word::Range& range) const;

  private:
    AutomationObject application_;
    std::unordered_map<const word::Range*, DispatchPtr> ranges_;
    std::unordered_map<const IDispatch*, int> owners_;  ///< the number of ranges of the model
};

using ComWordModelPtr = std::shared_ptr<ComWordModel>;

/// Make the objects of the model over Word's own.
/// Without known names the bookmarks are those of a part of a document, which are looked up by Word.
word::BookmarksPtr makeBookmarks(const ComWordModelPtr& model, const AutomationObject& bookmarks,
                                 const KnownNamesPtr& known = nullptr);
word::CellsPtr makeCells(const ComWordModelPtr& model, const AutomationObject& cells);
/// A range at a caret is empty until the next change.
enum class RangeKind { Any, Caret };
word::RangePtr makeRange(const ComWordModelPtr& model, const AutomationObject& range,
                         RangeKind kind = RangeKind::Any);
word::SelectionPtr makeSelection(const ComWordModelPtr& model, const AutomationObject& selection);
word::TablesPtr makeTables(const ComWordModelPtr& model, const AutomationObject& tables);

/// Decides which of a document's fields a collection has.
enum class FieldChoice { All, OfMailMerge };
/// Returns the fields of a range or of the selection.
word::FieldsPtr makeFields(const ComWordModelPtr& model, const AutomationObject& owner);
/// Returns the fields of all stories of a document.
word::FieldsPtr makeDocumentFields(const ComWordModelPtr& model, const AutomationObject& document,
                                   FieldChoice choice);

}  // namespace mergeloom::com
