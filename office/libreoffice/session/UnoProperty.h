#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <rtl/ustring.hxx>

namespace mergeloom::libreoffice {

/// Returns a named value, as UNO takes its options.
template <typename Value>
css::beans::PropertyValue property(const char* name, const Value& value) {
    css::beans::PropertyValue result;
    result.Name = rtl::OUString::createFromAscii(name);
    result.Value <<= value;
    return result;
}

}  // namespace mergeloom::libreoffice
