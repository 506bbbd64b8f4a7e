#include "office/libreoffice/session/UnoContext.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/FileUrl.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/uno/Exception.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace mergeloom::libreoffice {

namespace {

const std::string kFolder = MERGELOOM_UNO_FOLDER;

Reference<css::uno::XComponentContext> makeContext() try {
#ifdef __SANITIZE_ADDRESS__
    // UNO's libraries do not free what they keep to the program's end.
    const __lsan::ScopedDisabler kept;
#endif
    rtl::Bootstrap::set("URE_BOOTSTRAP", toUno("vnd.sun.star.pathname:" + kFolder + "/fundamentalrc"));
    return cppu::defaultBootstrap_InitialComponentContext(toUno(fileUrl(kFolder + "/unorc")));
} catch (const css::uno::Exception& error) {
    throw AutomationError(kNotAvailable, "The libraries of LibreOffice in '" + kFolder +
                                             "' are not complete: " + fromUno(error.Message));
}

}  // namespace

const Reference<css::uno::XComponentContext>& localContext() {
    // UNO's own threads may still use it while the program ends, so it is never destroyed.
    static const auto* const context = new Reference<css::uno::XComponentContext>(makeContext());
    return *context;
}

}  // namespace mergeloom::libreoffice
