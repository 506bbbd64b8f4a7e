#include "ui/dialogs/frmFields.h"

#include "ui/dialogs/DialogOwner.h"
#include "ui/dialogs/FieldsWindow.h"
#include "ui/services/GuiThread.h"

namespace mergeloom {

void frmFields::Show(FieldSelection& fields) {
    callOnGuiThread([&] {
        FieldsWindow window(ownerOfDialog(owner_), fields, errors_);
        if (place_) window.keepVisible(*place_);
        window.exec();
    });
    // When it is closed by its frame or the Escape key, the list still counts as shown.
    fields.SetVisible(false);
}

}  // namespace mergeloom
