#include "office/libreoffice/session/LookSettings.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/configuration/ReadWriteAccess.hpp>

namespace mergeloom::libreoffice {

namespace {

/// A color of the office's own scheme, which has another name since LibreOffice 25.2.
struct SchemeColor {
    const char* scheme;
    const char* name;
};

constexpr SchemeColor kSchemeColors[] = {
    {"LibreOffice", "Color"},
    {"COLOR_SCHEME_LIBREOFFICE_AUTOMATIC", "Light"},
    {"COLOR_SCHEME_LIBREOFFICE_AUTOMATIC", "Dark"},
};

std::string nodeOf(const SchemeColor& color) {
    return std::string(
               "/org.openoffice.Office.UI/ColorScheme/ColorSchemes/org.openoffice.Office.UI:ColorScheme['") +
           color.scheme + "']/AppBackground";
}

css::uno::Any unoValue(const LookSetting& setting) {
    if (const auto* const text = std::get_if<std::string>(&setting.value)) return css::uno::Any(toUno(*text));
    return css::uno::Any(sal_Int32{std::get<std::int32_t>(setting.value)});
}

}  // namespace

std::vector<LookSetting> lookSettings(const HostLook& look) {
    if (!look.colors) return {};
    std::vector<LookSetting> settings{{"/org.openoffice.Office.Common/Misc", "SymbolStyle",
                                       std::string(isDark(look) ? "colibre_dark" : "colibre")}};
    const auto surroundings = static_cast<std::int32_t>(look.colors->window);
    for (const SchemeColor& color : kSchemeColors)
        settings.push_back({nodeOf(color), color.name, surroundings});
    return settings;
}

void changeLookSettings(const Reference<css::uno::XComponentContext>& office, const HostLook& look) {
    const auto configuration = css::configuration::ReadWriteAccess::create(office, "*");
    for (const LookSetting& setting : lookSettings(look)) {
        const OUString path = toUno(setting.node + "/" + setting.name);
        if (configuration->hasByHierarchicalName(path))
            configuration->replaceByHierarchicalName(path, unoValue(setting));
    }
    configuration->commitChanges();
}

}  // namespace mergeloom::libreoffice
