#include "office/libreoffice/job/NamedAreas.h"

#include <atomic>
#include <chrono>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <cppuhelper/implbase1.hxx>
#include <iterator>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using Area = css::table::CellRangeAddress;
using rtl::OUString;

/// The maximum duration of a call, since commands of the user may have to wait for it.
constexpr std::chrono::milliseconds kTimeOfCall{15};

const Area kNoCells(0, 0, 0, -1, -1);

/// Returns an empty area for a name without cells, or with cells of several sheets.
Area areaOf(const Reference<css::container::XNameAccess>& names, const OUString& name) try {
    const Reference<css::sheet::XCellRangeReferrer> referrer(names->getByName(name), UNO_QUERY_THROW);
    const Reference<css::sheet::XCellRangeAddressable> cells(referrer->getReferredCells(), UNO_QUERY);
    return cells.is() ? cells->getRangeAddress() : kNoCells;
} catch (const css::container::NoSuchElementException&) {
    return kNoCells;
}

}  // namespace

/// Notes that a document was changed. Each change of names and each one that moves cells is a step of the
/// document's undo list.
class DocumentChanges final : public cppu::WeakImplHelper1<css::document::XUndoManagerListener> {
  public:
    /// Returns true if there were changes since the last call.
    bool take() { return wasChanged_.exchange(false); }

    void SAL_CALL undoActionAdded(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL actionUndone(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL actionRedone(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL allActionsCleared(const css::lang::EventObject&) override { note(); }
    void SAL_CALL redoActionsCleared(const css::lang::EventObject&) override {}
    void SAL_CALL resetAll(const css::lang::EventObject&) override { note(); }
    void SAL_CALL enteredContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL enteredHiddenContext(const css::document::UndoManagerEvent&) override {}
    void SAL_CALL leftContext(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL leftHiddenContext(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL cancelledContext(const css::document::UndoManagerEvent&) override { note(); }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

  private:
    void note() { wasChanged_ = true; }

    std::atomic<bool> wasChanged_ = true;
};

NamedAreas::NamedAreas() = default;
NamedAreas::~NamedAreas() = default;

bool NamedAreas::read(const DocumentReference& workbook) {
    if (workbook != workbook_) watch(workbook);
    if (changes_->take()) listNames();
    const auto last = std::chrono::steady_clock::now() + kTimeOfCall;
    while (!unread_.empty() && std::chrono::steady_clock::now() < last) {
        areas_[unread_.back()] = areaOf(names_, unread_.back());
        unread_.pop_back();
    }
    return unread_.empty();
}

void NamedAreas::endWatch() try {
    if (steps_.is()) steps_->removeUndoManagerListener(changes_.get());
} catch (const css::lang::DisposedException&) {
    // The workbook is closed and has no listeners any more.
}

void NamedAreas::watch(const DocumentReference& workbook) {
    endWatch();
    areas_.clear();
    changes_ = new DocumentChanges;
    names_.set(
        Reference<css::beans::XPropertySet>(workbook, UNO_QUERY_THROW)->getPropertyValue("NamedRanges"),
        UNO_QUERY_THROW);
    steps_ = Reference<css::document::XUndoManagerSupplier>(workbook, UNO_QUERY_THROW)->getUndoManager();
    steps_->addUndoManagerListener(changes_.get());
    workbook_ = workbook;
}

/// Removes the names that no longer exist. Appends the new ones to the list, whose end is read first.
void NamedAreas::listNames() {
    Areas former = std::exchange(areas_, {});
    std::vector<OUString> added;
    unread_.clear();
    for (const OUString& name : names_->getElementNames()) {
        if (name.startsWith("_")) continue;
        const auto known = former.find(name);
        if (known != former.end()) areas_.insert(areas_.end(), *known);
        (known == former.end() ? added : unread_).push_back(name);
    }
    unread_.insert(unread_.end(), std::make_move_iterator(added.begin()),
                   std::make_move_iterator(added.end()));
}

}  // namespace mergeloom::libreoffice
