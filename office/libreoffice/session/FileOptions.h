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

/// Returns the options that keep a document quiet, wherever it comes from.
Properties quiet();
Properties readOnly();
/// Returns the options with the password of a file; an empty one is none.
Properties with(const std::string& password, Properties properties);
bool havePassword(const Properties& properties);
void append(Properties& properties, const OfficeFilter& filter);

/// Returns the office's options for PDF files. It takes them by itself only when it is given none at all.
Properties pdfOptions(const Reference<css::uno::XComponentContext>& context);

}  // namespace mergeloom::libreoffice
