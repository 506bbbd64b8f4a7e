#pragma once

#include "office/libreoffice/excel/CalcContent.h"

#include <com/sun/star/sheet/FormulaToken.hpp>
#include <com/sun/star/sheet/XFormulaParser.hpp>
#include <string>
#include <variant>

namespace mergeloom::libreoffice {

/// What a name stands for, as Calc takes it: a text of its own notation, or a formula that it has parsed.
/// Neither hangs on a locale.
using CalcNameContent = std::variant<std::string, css::uno::Sequence<css::sheet::FormulaToken>>;

/// Reads Excel's notation, with "=" before it. A reference without a sheet leads to the active one. Raises
/// kApplicationDefined for what is no formula.
CalcNameContent parseNameFormula(CalcContent& content, const std::string& refersToLocal);
/// Excel's notation of what a name stands for, with "=" before it.
std::string nameFormulaOf(CalcContent& content, const Reference<css::sheet::XNamedRange>& name);

}  // namespace mergeloom::libreoffice
