#include "office/libreoffice/host/ChangeWatch.h"

#include <com/sun/star/document/XDocumentEventBroadcaster.hpp>

namespace mergeloom::libreoffice {

void ChangeWatch::watch(const DocumentReference& document) {
    const Reference<css::document::XDocumentEventBroadcaster> broadcaster(document, UNO_QUERY);
    if (broadcaster.is()) broadcaster->addDocumentEventListener(this);
}

void ChangeWatch::documentEventOccured(const css::document::DocumentEvent& event) {
    if (event.EventName == "OnModifyChanged") sink_();
}

}  // namespace mergeloom::libreoffice
