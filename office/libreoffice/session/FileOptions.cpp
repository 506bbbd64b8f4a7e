#include "office/libreoffice/session/FileOptions.h"

#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/configuration/ReadOnlyAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>

namespace mergeloom::libreoffice {

css::uno::Sequence<css::beans::PropertyValue> sequenceOf(const Properties& properties) {
    return {properties.data(), static_cast<sal_Int32>(properties.size())};
}

Properties quiet() {
    return {property("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
            property("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE)};
}

Properties readOnly() {
    return {property("ReadOnly", true)};
}

Properties with(const std::string& password, Properties properties) {
    if (!password.empty()) properties.push_back(property("Password", toUno(password)));
    return properties;
}

bool havePassword(const Properties& properties) {
    return std::ranges::any_of(properties, [](const auto& value) { return value.Name == "Password"; });
}

void append(Properties& properties, const OfficeFilter& filter) {
    if (!filter.name.empty()) properties.push_back(property("FilterName", toUno(filter.name)));
    if (!filter.options.empty()) properties.push_back(property("FilterOptions", toUno(filter.options)));
}

Properties pdfOptions(const Reference<css::uno::XComponentContext>& context) {
    Properties data;
    const Reference<css::container::XNameAccess> options(
        css::configuration::ReadOnlyAccess::create(context, "")
            ->getByHierarchicalName("/org.openoffice.Office.Common/Filter/PDF/Export"),
        UNO_QUERY_THROW);
    for (const OUString& name : options->getElementNames())
        data.push_back({name, 0, options->getByName(name), css::beans::PropertyState_DIRECT_VALUE});
    return data;
}

}  // namespace mergeloom::libreoffice
