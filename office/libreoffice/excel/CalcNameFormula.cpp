#include "office/libreoffice/excel/CalcNameFormula.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcAddress.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/AddressConvention.hpp>
#include <com/sun/star/sheet/XFormulaTokens.hpp>

namespace mergeloom::libreoffice {

namespace {

using Tokens = css::uno::Sequence<css::sheet::FormulaToken>;

constexpr const char* kLostReference = "#REF!";
/// Calc's code of what its parser did not understand.
constexpr sal_Int32 kBadOperation = 14;

/// The notation of the file format: commas between arguments and English names, whatever the locale.
Reference<css::sheet::XFormulaParser> makeParser(CalcContent& content) {
    const Reference<css::sheet::XFormulaParser> parser(
        content.factory()->createInstance("com.sun.star.sheet.FormulaParser"), UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> properties(parser, UNO_QUERY_THROW);
    const sal_Int16 convention = css::sheet::AddressConvention::XL_OOX;
    properties->setPropertyValue("FormulaConvention", css::uno::Any(convention));
    properties->setPropertyValue("CompileEnglish", css::uno::Any(true));
    return parser;
}

[[noreturn]] void refuseFormula(const std::string& formula) {
    throw AutomationError(kApplicationDefined, "'" + formula + "' is no formula.");
}

}  // namespace

CalcNameContent parseNameFormula(CalcContent& content, const std::string& refersToLocal) {
    if (refersToLocal.size() < 2 || refersToLocal.front() != '=') refuseFormula(refersToLocal);
    const std::string formula = refersToLocal.substr(1);
    if (excel::parseArea(formula)) {
        return referenceOnSheet(content.sheet(content.activeSheet()).name(), formula);
    }
    if (findIgnoringAsciiCase(formula, kLostReference) != std::string::npos) return kLostReference;
    content.pending().settle();
    Tokens tokens =
        content.connection().call([&] { return makeParser(content)->parseFormula(toUno(formula), {}); });
    const auto isBad = [](const css::sheet::FormulaToken& token) { return token.OpCode == kBadOperation; };
    if (!tokens.hasElements() || std::any_of(tokens.begin(), tokens.end(), isBad))
        refuseFormula(refersToLocal);
    return tokens;
}

/// Calc prints a reference that leads nowhere as an empty text.
std::string nameFormulaOf(CalcContent& content, const Reference<css::sheet::XNamedRange>& name) {
    return content.connection().call([&] {
        const std::string own = fromUno(name->getContent());
        if (findIgnoringAsciiCase(own, kLostReference) != std::string::npos)
            return "=" + std::string(kLostReference);
        const Reference<css::sheet::XFormulaTokens> tokens(name, UNO_QUERY_THROW);
        const OUString formula =
            makeParser(content)->printFormula(tokens->getTokens(), name->getReferencePosition());
        return "=" + fromUno(formula);
    });
}

}  // namespace mergeloom::libreoffice
