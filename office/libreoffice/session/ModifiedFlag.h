#pragma once

#include "base/AutomationError.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"

#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/util/XModifiable2.hpp>
#include <string>

namespace mergeloom::libreoffice {

/// The modified flag of a document during a save. Restores the flag if the save fails.
class ModifiedFlag {
  public:
    ModifiedFlag(OfficeConnection& connection, const DocumentReference& document)
        : connection_(connection), document_(document), wasSet_(isSet()) {}
    ModifiedFlag(const ModifiedFlag&) = delete;
    ModifiedFlag& operator=(const ModifiedFlag&) = delete;
    ~ModifiedFlag() {
        try {
            if (wasSet_) set(true);
        } catch (const AutomationError&) {
            // The office ended, and with it the document.
        }
    }

    /// Calls write and then revise, and returns the result of revise. Repeats both if revise raises
    /// DifferingCopy and the user may have changed the document after it was written. Clears the flag between
    /// the two calls, so that any later change by the user sets it again.
    template <typename Write, typename Revise>
    std::string unchangedDuring(const Write& write, const Revise& revise) {
        for (int attempt = 1;; ++attempt) {
            write();
            set(false);
            try {
                return revise();
            } catch (const model::DifferingCopy&) {
                const bool mayHaveChanged = attempt == 1 || isSet();
                if (!mayHaveChanged || attempt == kMaxSaveAttempts) throw;
            }
        }
    }

    /// Keeps the current flag: the save succeeded.
    void keep() { wasSet_ = false; }

  private:
    /// The limit for a user who types during every attempt.
    static constexpr int kMaxSaveAttempts = 10;

    bool isSet() {
        return connection_.call([this] { return modifiable()->isModified(); });
    }
    void set(bool isSet) {
        connection_.call([&] { modifiable()->setModified(isSet); });
    }
    [[nodiscard]] Reference<css::util::XModifiable> modifiable() const {
        return {document_, UNO_QUERY_THROW};
    }

    OfficeConnection& connection_;
    const DocumentReference document_;
    bool wasSet_;
};

/// Locks the modified flag of a document. Export filters would set it, since they change the document's
/// properties. Sets it at the end if the user changed the document meanwhile, which the undo list shows.
class ModifiedFlagLock {
  public:
    explicit ModifiedFlagLock(const DocumentReference& document)
        : modifiable_(document, UNO_QUERY_THROW), undoList_(document, UNO_QUERY), steps_(steps()) {
        modifiable_->disableSetModified();
    }
    ModifiedFlagLock(const ModifiedFlagLock&) = delete;
    ModifiedFlagLock& operator=(const ModifiedFlagLock&) = delete;
    ~ModifiedFlagLock() {
        try {
            modifiable_->enableSetModified();
            if (steps() != steps_) modifiable_->setModified(true);
        } catch (const css::uno::Exception&) {
            // The office ended, and with it the document.
        }
    }

  private:
    /// Returns the titles of the user's steps. The title of typing shows the text, so it changes with each
    /// key.
    [[nodiscard]] css::uno::Sequence<OUString> steps() const {
        if (!undoList_.is()) return {};
        return undoList_->getUndoManager()->getAllUndoActionTitles();
    }

    Reference<css::util::XModifiable2> modifiable_;
    Reference<css::document::XUndoManagerSupplier> undoList_;
    css::uno::Sequence<OUString> steps_;
};

}  // namespace mergeloom::libreoffice
