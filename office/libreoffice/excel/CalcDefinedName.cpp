#include "office/libreoffice/excel/CalcDefinedName.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcAddress.h"
#include "office/libreoffice/excel/CalcNameFormula.h"
#include "office/libreoffice/excel/CalcRange.h"

#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XFormulaTokens.hpp>

namespace mergeloom::libreoffice {

std::string CalcDefinedName::Name() {
    const CalcNameIndex::Entry& name = entry();
    if (name.sheet == CalcNameIndex::kDocument) return name.name;
    return content_->sheet(static_cast<std::size_t>(name.sheet)).name() + "!" + name.name;
}

Reference<css::sheet::XNamedRange> CalcDefinedName::uno() const {
    return content_->connection().call([&] {
        const Reference<css::sheet::XNamedRanges> names = content_->namesOf(entry().sheet);
        return Reference<css::sheet::XNamedRange>(names->getByName(toUno(entry().name)), UNO_QUERY_THROW);
    });
}

std::string CalcDefinedName::RefersToLocal() {
    return nameFormulaOf(*content_, uno());
}

void CalcDefinedName::SetRefersToLocal(const std::string& formula) {
    const CalcNameContent meaning = parseNameFormula(*content_, formula);
    const Reference<css::sheet::XNamedRange> name = uno();
    content_->touch();
    content_->connection().call([&] {
        const Reference<css::sheet::XFormulaTokens> tokens(name, UNO_QUERY_THROW);
        content_->undo().keep([&connection = content_->connection(), tokens, former = tokens->getTokens()] {
            connection.call([&] { tokens->setTokens(former); });
        });
        if (const auto* const text = std::get_if<std::string>(&meaning))
            return name->setContent(toUno(*text));
        tokens->setTokens(std::get<css::uno::Sequence<css::sheet::FormulaToken>>(meaning));
    });
}

excel::RangePtr CalcDefinedName::RefersToRange() {
    const Reference<css::sheet::XNamedRange> name = uno();
    css::table::CellRangeAddress address;
    const bool found = content_->connection().call([&] {
        const Reference<css::sheet::XCellRangeReferrer> referrer(name, UNO_QUERY_THROW);
        const Reference<css::sheet::XCellRangeAddressable> cells(referrer->getReferredCells(), UNO_QUERY);
        if (cells.is()) address = cells->getRangeAddress();
        return cells.is();
    });
    if (!found) {
        throw AutomationError(kApplicationDefined, "The name '" + Name() + "' does not stand for cells.");
    }
    return calcRangeOf(content_, static_cast<std::size_t>(address.Sheet), areaOf(address));
}

}  // namespace mergeloom::libreoffice
