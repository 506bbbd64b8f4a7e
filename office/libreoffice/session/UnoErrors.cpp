#include "office/libreoffice/session/UnoErrors.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/lang/DisposedException.hpp>

namespace mergeloom::libreoffice {

void raiseUnoError() try { throw; } catch (const css::lang::DisposedException& error) {
    throw AutomationError(kObjectDeleted, "The object has been deleted. (" + fromUno(error.Message) + ")");
} catch (const css::uno::Exception& error) {
    throw AutomationError(kCommandFailed, "LibreOffice could not do it: " + fromUno(error.Message));
}

}  // namespace mergeloom::libreoffice
