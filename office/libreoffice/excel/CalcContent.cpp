#include "office/libreoffice/excel/CalcContent.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcView.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

Reference<css::document::XUndoManager> undoManagerOf(OfficeConnection& connection,
                                                     const DocumentReference& document) {
    return connection.call([&] {
        const Reference<css::document::XUndoManagerSupplier> supplier(document, UNO_QUERY_THROW);
        return supplier->getUndoManager();
    });
}

template <typename Interface>
Reference<Interface> interfaceOf(OfficeConnection& connection, const DocumentReference& document) {
    return connection.call([&] { return Reference<Interface>(document, UNO_QUERY_THROW); });
}

/// Returns the style of all cells that have no other one. Its name depends on the language of the office, but
/// it is always the first.
Reference<css::beans::XPropertySet> defaultStyleOf(const DocumentReference& document) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(document, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> styles(
        supplier->getStyleFamilies()->getByName("CellStyles"), UNO_QUERY_THROW);
    return {styles->getByIndex(0), UNO_QUERY_THROW};
}

CalcFont defaultFontOf(const DocumentReference& document) {
    const Reference<css::beans::XPropertySet> style = defaultStyleOf(document);
    CalcFont font;
    OUString name;
    float points = 0;
    if (style->getPropertyValue("CharFontName") >>= name) font.name = fromUno(name);
    if (style->getPropertyValue("CharHeight") >>= points) font.points = static_cast<double>(points);
    return font;
}

UndoUser userOf(LibreOfficeSession& session) {
    return session.files().showsDocuments() ? UndoUser::ModelAndUser : UndoUser::Model;
}

Reference<css::sheet::XNamedRanges> namesIn(const Reference<css::uno::XInterface>& owner) {
    const Reference<css::beans::XPropertySet> properties(owner, UNO_QUERY_THROW);
    return {properties->getPropertyValue("NamedRanges"), UNO_QUERY_THROW};
}

}  // namespace

CalcContent::CalcContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                         const DocumentReference& document)
    : session_(std::move(session)),
      files_(files),
      document_(document),
      workbook_(interfaceOf<css::sheet::XSpreadsheetDocument>(connection(), document_)),
      factory_(interfaceOf<css::lang::XMultiServiceFactory>(connection(), document_)),
      undo_(connection(), undoManagerOf(connection(), document_),
            interfaceOf<css::frame::XModel>(connection(), document_), userOf(*session_)),
      pending_(connection(), undo_),
      fonts_(connection()),
      isShown_(session_->files().showsDocuments()) {
    connection().call([&] {
        readSheets();
        readSheetKinds();
        readNames();
    });
}

CalcContent::CalcContent(CalcContent& former)
    : CalcContent(former.session_, former.files_, former.document_) {
    isSaved_ = former.isSaved_;
    former.closesDocument_ = false;
}

CalcContent::~CalcContent() {
    if (closesDocument_) session_->files().close(document_);
}

void CalcContent::readSheets() {
    const Reference<css::frame::XModel> model(document_, UNO_QUERY_THROW);
    const CalcViewState view = readViewState(model->getCurrentController());
    const css::uno::Sequence<OUString> names = workbook_->getSheets()->getElementNames();
    const Reference<css::container::XIndexAccess> sheets(workbook_->getSheets(), UNO_QUERY_THROW);
    for (sal_Int32 index = 0; index < names.getLength(); ++index) {
        const Reference<css::sheet::XSpreadsheet> sheet(sheets->getByIndex(index), UNO_QUERY_THROW);
        const std::string name = fromUno(names[index]);
        const excel::CellPosition activeCell = view.cellOf(static_cast<std::size_t>(index));
        sheets_.push_back(std::make_unique<CalcSheet>(connection(), pending_, sheet, name, activeCell));
        pending_.addSheet(sheet, name);
    }
    activeSheet_ = std::min(view.activeSheet, sheets_.size() - 1);
}

void CalcContent::readSheetKinds() {
    const std::vector<CalcSheetKind> kinds = sheetKindsOf(*session_, document_);
    if (kinds.size() != sheets_.size()) return;
    for (std::size_t index = 0; index < kinds.size(); ++index)
        sheets_[index]->setKind(kinds[index]);
}

void CalcContent::readNames() {
    documentNames_ = namesIn(document_);
    pending_.setNames(documentNames_);
    readNames(documentNames_, CalcNameIndex::kDocument);
    for (std::size_t index = 0; index < sheets_.size(); ++index) {
        const int sheet = static_cast<int>(index);
        readNames(ownNamesOf(sheet), sheet);
    }
    const Reference<css::beans::XPropertySet> properties(document_, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> tables(properties->getPropertyValue("DatabaseRanges"),
                                                        UNO_QUERY_THROW);
    for (const OUString& name : tables->getElementNames())
        names_.reserveTableName(fromUno(name));
}

void CalcContent::readNames(const Reference<css::sheet::XNamedRanges>& names, int sheet) {
    for (const OUString& name : names->getElementNames())
        names_.append(fromUno(name), sheet);
}

std::optional<std::size_t> CalcContent::sheetNamed(const std::string& name) const {
    const auto found = std::ranges::find_if(sheets_, [&](const auto& sheet) {
        return sheet->hasCells() && equalsIgnoringCase(sheet->name(), name);
    });
    if (found == sheets_.end()) return {};
    return static_cast<std::size_t>(found - sheets_.begin());
}

std::size_t CalcContent::activeSheet() const {
    if (hasActiveCells()) return activeSheet_;
    throw AutomationError(kApplicationDefined,
                          "The active sheet '" + sheets_[activeSheet_]->name() + "' has no cells.");
}

void CalcContent::activate(std::size_t index) {
    if (index == activeSheet_) return;
    if (sheet(index).isHidden()) {
        throw AutomationError(kApplicationDefined, "The sheet '" + sheet(index).name() + "' is hidden.");
    }
    undo_.record([this, former = activeSheet_] { activeSheet_ = former; });
    activeSheet_ = index;
}

void CalcContent::select(std::size_t index, const excel::CellSelection& selection) {
    const excel::CellSelection former = sheet(index).selection();
    if (former == selection) return;
    undo_.record([this, index, former] { sheet(index).select(former); });
    sheet(index).select(selection);
}

Reference<css::sheet::XNamedRanges> CalcContent::namesOf(int sheet) {
    pending_.flush();
    return ownNamesOf(sheet);
}

Reference<css::sheet::XNamedRanges> CalcContent::ownNamesOf(int sheet) const {
    if (sheet == CalcNameIndex::kDocument) return documentNames_;
    return namesIn(sheets_.at(static_cast<std::size_t>(sheet))->uno());
}

const CalcColumnUnits& CalcContent::columnUnits() {
    if (!columnUnits_) {
        const CalcFont font = connection().call([&] { return defaultFontOf(document_); });
        columnUnits_.emplace(fonts_.digitWidth(font));
    }
    return *columnUnits_;
}

bool CalcContent::showsBooleans(sal_Int32 numberFormat) {
    if (!numberFormats_.is()) {
        const Reference<css::util::XNumberFormatsSupplier> supplier(document_, UNO_QUERY_THROW);
        numberFormats_ = supplier->getNumberFormats();
    }
    sal_Int16 type = 0;
    numberFormats_->getByKey(numberFormat)->getPropertyValue("Type") >>= type;
    return (type & css::util::NumberFormat::LOGICAL) != 0;
}

void CalcContent::startRecord(const std::string& name) {
    if (isShown_) pending_.flush();
    undo_.start(name);
}

/// Pending changes belong to the step that a user may undo.
bool CalcContent::endRecord() {
    if (isShown_) pending_.flush();
    return undo_.stop();
}

bool CalcContent::isSaved() {
    if (!isShown_ || !isSaved_) return isSaved_;
    return connection().call(
        [&] { return !Reference<css::util::XModifiable>(document_, UNO_QUERY_THROW)->isModified(); });
}

void CalcContent::setSaved(bool isSaved) {
    isSaved_ = isSaved;
    if (!isShown_) return;
    connection().call(
        [&] { Reference<css::util::XModifiable>(document_, UNO_QUERY_THROW)->setModified(!isSaved); });
}

void CalcContent::touch() {
    undo_.change();
    isSaved_ = false;
}

void applyNewWorkbookDefaults(OfficeConnection& connection, const DocumentReference& document) {
    constexpr int kColumnPixels = 64;
    constexpr float kFontPoints = 11;
    CalcFonts fonts(connection);
    connection.call([&] {
        const Reference<css::beans::XPropertySet> style = defaultStyleOf(document);
        style->setPropertyValue("CharFontName", css::uno::Any(OUString("Calibri")));
        style->setPropertyValue("CharHeight", css::uno::Any(kFontPoints));
        const Reference<css::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY_THROW);
        const Reference<css::container::XIndexAccess> sheets(workbook->getSheets(), UNO_QUERY_THROW);
        const Reference<css::container::XNamed> sheet(sheets->getByIndex(0), UNO_QUERY_THROW);
        sheet->setName("Sheet1");
        const CalcColumnUnits units(fonts.digitWidth(defaultFontOf(document)));
        const Reference<css::table::XColumnRowRange> cells(sheet, UNO_QUERY_THROW);
        const Reference<css::beans::XPropertySet> columns(cells->getColumns(), UNO_QUERY_THROW);
        columns->setPropertyValue("Width", css::uno::Any(units.lengthOf(kColumnPixels)));
        // Users must not undo this or be asked whether to save it.
        Reference<css::document::XUndoManagerSupplier>(document, UNO_QUERY_THROW)->getUndoManager()->clear();
        Reference<css::util::XModifiable>(document, UNO_QUERY_THROW)->setModified(false);
    });
}

}  // namespace mergeloom::libreoffice
