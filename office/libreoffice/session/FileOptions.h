#pragma once

#include "office/formats/FormatTable.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>
#include <vector>

/// The options with which an office opens and writes files.
namespace mergeloom::libreoffice {

using Properties = std::vector<css::beans::PropertyValue>;

css::uno::Sequence<css::beans::PropertyValue> sequenceOf(const Properties& properties);

/// Returns the options by which a document runs no macros and updates no links.
Properties quiet();
Properties readOnly();
/// Returns the options with the password of a file added, unless it is empty.
Properties with(const std::string& password, Properties properties);
bool havePassword(const Properties& properties);
void append(Properties& properties, const OfficeFilter& filter);

/// Returns the office's own options for PDF files. The office uses them only if it is given no options at
/// all.
Properties pdfOptions(const Reference<css::uno::XComponentContext>& context);

}  // namespace mergeloom::libreoffice
