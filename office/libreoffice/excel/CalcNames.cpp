#include "office/libreoffice/excel/CalcNames.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcDefinedName.h"
#include "office/libreoffice/excel/CalcNameFormula.h"
#include "office/model/excel/CellAddress.h"
#include "office/model/excel/DefinedNameRule.h"

#include <com/sun/star/lang/DisposedException.hpp>

namespace mergeloom::libreoffice {

namespace {

[[noreturn]] void refuseName(const std::string& name) {
    throw AutomationError(kApplicationDefined, "'" + name + "' cannot be the name of cells.");
}

/// The one cell of the active sheet to which a formula leads; none for other formulas.
std::optional<excel::CellPosition> cellMeantBy(const std::string& refersToLocal) {
    if (refersToLocal.empty() || refersToLocal.front() != '=') return {};
    const std::string_view address = std::string_view(refersToLocal).substr(1);
    const std::optional<excel::CellPosition> cell = excel::parseCell(address);
    if (!cell || excel::absoluteAddressOf({*cell, *cell}) != address) return {};
    return cell;
}

/// What a name stands for until a parsed formula is handed over.
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

/// A table's name is taken, although it is none of the names that can be got.
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
    // Calc takes some names that Excel refuses, and which ones depends on what it did before.
    if (!excel::isDefinedName(name)) refuseName(name);
    const std::optional<excel::CellPosition> cell = cellMeantBy(refersToLocal);
    if (!cell || !CalcPending::mayWait(name)) return define(name, refersToLocal);
    const std::size_t sheet = content_->activeSheet();
    content_->touch();
    content_->names().append(name, CalcNameIndex::kDocument);
    content_->undo().keep([content = content_.get()] { content->names().removeLast(); });
    content_->pending().addName(sheet, *cell, name);
    return std::make_shared<CalcDefinedName>(content_, content_->names().entries().size() - 1);
}

excel::DefinedNamePtr CalcNames::define(const std::string& name, const std::string& refersToLocal) {
    const CalcNameContent meaning = parseNameFormula(*content_, refersToLocal);
    const auto* const text = std::get_if<std::string>(&meaning);
    content_->connection().call([&] {
        const Reference<css::sheet::XNamedRanges> names = content_->namesOf(CalcNameIndex::kDocument);
        try {
            names->addNewByName(toUno(name), toUno(text ? *text : kPreliminary), {}, 0);
        } catch (const css::lang::DisposedException&) {
            throw;
        } catch (const css::uno::RuntimeException&) {
            refuseName(name);
        }
    });
    content_->touch();
    CalcNameIndex& index = content_->names();
    index.append(name, CalcNameIndex::kDocument);
    content_->undo().keep([content = content_.get(), name] {
        content->connection().call(
            [&] { content->namesOf(CalcNameIndex::kDocument)->removeByName(toUno(name)); });
        content->names().removeLast();
    });
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
