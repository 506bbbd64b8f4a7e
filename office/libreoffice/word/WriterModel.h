#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"

#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <com/sun/star/util/XModifiable.hpp>

namespace mergeloom::libreoffice {

/// The faces of one of Writer's documents that are called again and again; each costs a call to get.
struct WriterModel {
    explicit WriterModel(const DocumentReference& component)
        : document(component),
          text(component, UNO_QUERY_THROW),
          factory(component, UNO_QUERY_THROW),
          bookmarks(component, UNO_QUERY_THROW),
          tables(component, UNO_QUERY_THROW),
          model(component, UNO_QUERY_THROW),
          modifiable(component, UNO_QUERY_THROW),
          undo(Reference<css::document::XUndoManagerSupplier>(component, UNO_QUERY_THROW)->getUndoManager()) {
    }

    DocumentReference document;
    Reference<css::text::XTextDocument> text;
    Reference<css::lang::XMultiServiceFactory> factory;
    Reference<css::text::XBookmarksSupplier> bookmarks;
    Reference<css::text::XTextTablesSupplier> tables;
    Reference<css::frame::XModel> model;
    Reference<css::util::XModifiable> modifiable;
    Reference<css::document::XUndoManager> undo;
};

}  // namespace mergeloom::libreoffice
