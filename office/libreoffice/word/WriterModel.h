#pragma once

#include "office/libreoffice/word/TextPlace.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <com/sun/star/util/XModifiable.hpp>

namespace mergeloom::libreoffice {

/// The interfaces of one of Writer's documents that are called again and again; each costs a call to get.
struct WriterModel {
    explicit WriterModel(const DocumentReference& component)
        : document(component),
          body(Reference<css::text::XTextDocument>(component, UNO_QUERY_THROW)->getText()),
          factory(component, UNO_QUERY_THROW),
          bookmarks(Reference<css::text::XBookmarksSupplier>(component, UNO_QUERY_THROW)->getBookmarks()),
          bookmarksByPlace(bookmarks, UNO_QUERY_THROW),
          tables(Reference<css::text::XTextTablesSupplier>(component, UNO_QUERY_THROW)->getTextTables()),
          model(component, UNO_QUERY_THROW),
          modifiable(component, UNO_QUERY_THROW),
          undo(Reference<css::document::XUndoManagerSupplier>(component, UNO_QUERY_THROW)->getUndoManager()) {
    }

    DocumentReference document;
    TextReference body;
    Reference<css::lang::XMultiServiceFactory> factory;
    Reference<css::container::XNameAccess> bookmarks;
    Reference<css::container::XIndexAccess> bookmarksByPlace;
    Reference<css::container::XNameAccess> tables;
    Reference<css::frame::XModel> model;
    Reference<css::util::XModifiable> modifiable;
    Reference<css::document::XUndoManager> undo;
};

}  // namespace mergeloom::libreoffice
