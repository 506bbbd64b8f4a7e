#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/HostLook.h"

#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace mergeloom::libreoffice {

/// A setting of the office: the node and the name of its property in the configuration, and the value.
struct LookSetting {
    std::string node;
    std::string name;
    std::variant<std::string, std::int32_t> value;
};

/// Returns the settings that follow the desktop's colors: the icons, and the color around a page. There are
/// none for a look without colors. Some belong to other versions of the office, which ignores them in a
/// profile.
std::vector<LookSetting> lookSettings(const HostLook& look);

/// Changes these settings in a running office, whose open windows follow them. Must be called within
/// OfficeConnection::call.
void changeLookSettings(const Reference<css::uno::XComponentContext>& office, const HostLook& look);

}  // namespace mergeloom::libreoffice
