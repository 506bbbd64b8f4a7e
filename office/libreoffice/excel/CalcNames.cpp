#include "office/libreoffice/excel/CalcNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcNameChange.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/model/excel/CellAddress.h"
#include "office/model/excel/DefinedNameRule.h"
#include "office/model/excel/Names.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/sheet/AddressConvention.hpp>
#include <com/sun/star/sheet/FormulaToken.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XFormulaParser.hpp>
#include <com/sun/star/sheet/XFormulaTokens.hpp>
#include <com/sun/star/sheet/XNamedRange.hpp>
#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <variant>

namespace mergeloom::libreoffice {

namespace {

/// The content of a name in the form that Calc accepts: a text in its own notation, or a parsed formula.
/// Neither depends on a locale.
using CalcNameContent = std::variant<std::string, css::uno::Sequence<css::sheet::FormulaToken>>;

using Tokens = css::uno::Sequence<css::sheet::FormulaToken>;

constexpr const char* kLostReference = "#REF!";
/// Calc's operation code for text that its parser did not understand.
constexpr sal_Int32 kBadOperation = 14;

/// Creates a parser for the notation of the file format: commas between arguments and English names,
/// regardless of the locale.
Reference<css::sheet::XFormulaParser> makeParser(CalcContent& content) {
    const Reference<css::sheet::XFormulaParser> parser(
        content.factory()->createInstance("com.sun.star.sheet.FormulaParser"), UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> properties(parser, UNO_QUERY_THROW);
    const sal_Int16 convention = css::sheet::AddressConvention::XL_OOX;
    properties->setPropertyValue("FormulaConvention", css::uno::Any(convention));
    properties->setPropertyValue("CompileEnglish", css::uno::Any(true));
    return parser;
}

[[noreturn]] void raiseNotAFormula(const std::string& formula) {
    throw AutomationError(kApplicationDefined, "'" + formula + "' is no formula.");
}

/// Parses Excel's notation, with "=" before it. A reference without a sheet refers to the active one. Raises
/// kApplicationDefined for a text that is not a formula.
CalcNameContent parseNameFormula(CalcContent& content, const std::string& refersToLocal) {
    if (refersToLocal.size() < 2 || refersToLocal.front() != '=') raiseNotAFormula(refersToLocal);
    const std::string formula = refersToLocal.substr(1);
    if (excel::parseArea(formula)) {
        return referenceOnSheet(content.sheet(content.activeSheet()).name(), formula);
    }
    if (findIgnoringAsciiCase(formula, kLostReference) != std::string::npos) return kLostReference;
    content.pending().flush();
    Tokens tokens =
        content.connection().call([&] { return makeParser(content)->parseFormula(toUno(formula), {}); });
    const auto isBad = [](const css::sheet::FormulaToken& token) { return token.OpCode == kBadOperation; };
    if (!tokens.hasElements() || std::any_of(tokens.begin(), tokens.end(), isBad))
        raiseNotAFormula(refersToLocal);
    return tokens;
}

/// Returns the content of a name in Excel's notation, with "=" before it. Calc prints an invalid reference as
/// an empty text.
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

class CalcDefinedName final : public excel::DefinedName {
  public:
    CalcDefinedName(CalcContentPtr content, std::size_t index)
        : content_(std::move(content)), index_(index) {}

    std::string Name() override;
    /// Calc reads hidden names, but its API does not say that they are hidden.
    bool Visible() override { return true; }
    std::string RefersToLocal() override;
    void SetRefersToLocal(const std::string& formula) override;
    excel::RangePtr RefersToRange() override;
    void Delete() override;

  private:
    [[nodiscard]] const CalcNameIndex::Entry& entry() const { return content_->names().entries().at(index_); }
    [[nodiscard]] Reference<css::sheet::XNamedRange> uno() const;

    CalcContentPtr content_;
    std::size_t index_;
};

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
        content_->undo().recordExchange(
            [&connection = content_->connection(), tokens, former = tokens->getTokens()]() mutable {
                connection.call([&] {
                    const Tokens replaced = tokens->getTokens();
                    tokens->setTokens(former);
                    former = replaced;
                });
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

void recordChange(CalcContent& content, CalcNameChange change) {
    content.undo().recordExchange([&connection = content.connection(), change = std::move(change)]() mutable {
        connection.call([&] { change.exchange(); });
    });
}

void CalcDefinedName::Delete() {
    const CalcNameIndex::Entry removed = entry();
    content_->touch();
    const CalcNameChange change = content_->connection().call([&] {
        CalcNameChange removal(content_->namesOf(removed.sheet), toUno(removed.name));
        removal.exchange();
        return removal;
    });
    recordChange(*content_, change);
    content_->names().remove(index_);
    content_->undo().record(
        [content = content_.get(), removed, index = index_] { content->names().insert(removed, index); });
}

[[noreturn]] void raiseInvalidName(const std::string& name) {
    throw AutomationError(kApplicationDefined, "'" + name + "' cannot be the name of cells.");
}

/// Returns the one cell of the active sheet to which a formula refers; none for other formulas.
std::optional<excel::CellPosition> cellMeantBy(const std::string& refersToLocal) {
    if (refersToLocal.empty() || refersToLocal.front() != '=') return {};
    const std::string_view address = std::string_view(refersToLocal).substr(1);
    const std::optional<excel::CellPosition> cell = excel::parseCell(address);
    if (!cell || excel::absoluteAddressOf({*cell, *cell}) != address) return {};
    return cell;
}

/// The content of a new name until a parsed formula is set.
constexpr const char* kPreliminary = "0";

}  // namespace

excel::DefinedNamePtr CalcNames::Item(int number) {
    return std::make_shared<CalcDefinedName>(content_, indexOf(number));
}

excel::DefinedNamePtr CalcNames::Item(const std::string& name) {
    const std::optional<std::size_t> index = find(name);
    if (!index) throw AutomationError(kApplicationDefined, "There is no name '" + name + "'.");
    return std::make_shared<CalcDefinedName>(content_, *index);
}

/// A table's name is in use too, although Item() does not return it.
bool CalcNames::Exists(const std::string& name) {
    return find(name) || content_->names().isTableName(name);
}

std::int64_t CalcNames::firstFreeCounter(const std::string& stem) {
    return content_->names().firstFreeCounter(stem);
}

excel::DefinedNamePtr CalcNames::Add(const std::string& name, const std::string& refersToLocal) {
    if (content_->names().isTableName(name))
        throw AutomationError(kApplicationDefined, "The name '" + name + "' is that of a table.");
    if (const auto found = content_->names().find(name, CalcNameIndex::kDocument)) {
        auto defined = std::make_shared<CalcDefinedName>(content_, *found);
        defined->SetRefersToLocal(refersToLocal);
        return defined;
    }
    // Calc accepts some names that Excel rejects, and which ones depends on its former operations.
    if (!excel::isDefinedName(name)) raiseInvalidName(name);
    const std::optional<excel::CellPosition> cell = cellMeantBy(refersToLocal);
    if (!cell || !CalcPendingEdits::canWait(name)) return define(name, refersToLocal);
    const std::size_t sheet = content_->activeSheet();
    content_->touch();
    content_->names().append(name, CalcNameIndex::kDocument);
    content_->undo().record([content = content_.get()] { content->names().removeLast(); });
    content_->pending().addName(sheet, *cell, name);
    return std::make_shared<CalcDefinedName>(content_, content_->names().entries().size() - 1);
}

excel::DefinedNamePtr CalcNames::define(const std::string& name, const std::string& refersToLocal) {
    const CalcNameContent meaning = parseNameFormula(*content_, refersToLocal);
    const auto* const text = std::get_if<std::string>(&meaning);
    const Reference<css::sheet::XNamedRanges> names =
        content_->connection().call([&] { return content_->namesOf(CalcNameIndex::kDocument); });
    content_->connection().call([&] {
        try {
            names->addNewByName(toUno(name), toUno(text ? *text : kPreliminary), {}, 0);
        } catch (const css::lang::DisposedException&) {
            throw;
        } catch (const css::uno::RuntimeException&) {
            raiseInvalidName(name);
        }
    });
    content_->touch();
    CalcNameIndex& index = content_->names();
    index.append(name, CalcNameIndex::kDocument);
    content_->undo().record([content = content_.get()] { content->names().removeLast(); });
    recordChange(*content_, {names, toUno(name)});
    auto defined = std::make_shared<CalcDefinedName>(content_, index.entries().size() - 1);
    if (text == nullptr) defined->SetRefersToLocal(refersToLocal);
    return defined;
}

std::optional<std::size_t> CalcNames::find(const std::string& name) const {
    const std::size_t mark = name.rfind('!');
    if (mark == std::string::npos) return content_->names().find(name, CalcNameIndex::kDocument);
    const std::optional<std::size_t> sheet = content_->sheetNamed(name.substr(0, mark));
    if (!sheet) return {};
    return content_->names().find(name.substr(mark + 1), static_cast<int>(*sheet));
}

}  // namespace mergeloom::libreoffice
