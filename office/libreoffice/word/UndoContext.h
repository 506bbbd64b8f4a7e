#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/document/XUndoManager.hpp>
#include <rtl/ref.hxx>
#include <string>

namespace mergeloom::libreoffice {

/// A context of an undo list: all changes that are made while it is open become one step. Writer keeps no
/// step for a context without changes.
class UndoContext {
  public:
    /// Opens the context under the name that the list shows.
    UndoContext(const Reference<css::document::XUndoManager>& undo, const std::string& name);
    UndoContext(const UndoContext&) = delete;
    UndoContext& operator=(const UndoContext&) = delete;
    ~UndoContext();

    /// Closes the context. Returns true when it has become a step.
    bool leave();

  private:
    class Listener;

    Reference<css::document::XUndoManager> undo_;
    rtl::Reference<Listener> listener_;
};

}  // namespace mergeloom::libreoffice
