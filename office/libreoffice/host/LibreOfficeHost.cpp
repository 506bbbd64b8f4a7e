#include "office/libreoffice/host/LibreOfficeHost.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/excel/CalcView.h"
#include "office/libreoffice/host/HostPlaces.h"
#include "office/libreoffice/host/HostedDocuments.h"
#include "office/libreoffice/host/WindowLook.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/libreoffice/session/LookSettings.h"
#include "office/libreoffice/session/PendingEvents.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <algorithm>
#include <chrono>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/theMacroExpander.hpp>
#include <functional>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr std::chrono::seconds kBoundOfClosing{5};
constexpr std::chrono::milliseconds kPauseOfMonitor{100};
constexpr std::string_view kWordIdentifiers[] = {"Word.Template.8", "Word.Template", "Word.Template.12"};
constexpr std::string_view kExcelIdentifier = "Excel.Template";

}  // namespace

LibreOfficeHost::LibreOfficeHost(FileStore& files, const HostWindow& window, DocumentKind kind,
                                 HostListener& listener, const GraftingOfficePtr& grafting)
    : window_(window),
      kind_(kind),
      listener_(listener),
      focus_(std::in_place, window, listener),
      session_(std::make_shared<LibreOfficeSession>(files, TimeBounds{}, OfficeMode::Shown, window.look)),
      frames_(session_->connection(), windows_, std::bind_front(&HostListener::fileCommand, &listener)),
      filled_(*session_, windows_, std::bind_front(&HostListener::fileCommand, &listener)),
      marks_(session_->connection(), windows_, window.look, [&listener] { listener.marksMayHaveMoved(); }),
      word_(makeWordApplication(session_, files, grafting)),
      excel_(makeExcelApplication(session_, files, grafting)),
      changes_(new ChangeWatch([&listener] { listener.changesBeganOrEnded(); })) {
    session_->connection().call([this] { makeFirstBars(session_->connection().context()); });
    session_->connection().interruptIdleTasks([this] { windows_.sendEmptyDamage(innerWindow()); });
    session_->files().showIn([this] { return frames_.make(window_); });
    monitor_.emplace(kPauseOfMonitor, [this] {
        if (session_->process().isRunning()) return true;
        listener_.officeEnded();
        return false;
    });
}

LibreOfficeHost::~LibreOfficeHost() {
    monitor_.reset();
    focus_.reset();
    LibreOfficeProcess& process = session_->process();
    {
        Watchdog impatient(kBoundOfClosing, [&process] { process.kill(); });
        const Watchdog::Watch watch(impatient);
        closeDocuments();
    }
    edited_ = {};
    word_.reset();
    excel_.reset();
    session_->connection().interruptIdleTasks({});
    // A document that is still referred to keeps the session, but must not keep the office.
    if (session_.use_count() > 1) process.kill();
}

/// An office that is asked to end asks the user about documents that were not saved.
void LibreOfficeHost::closeDocuments() try {
    filled_.end();
    closeAllBut({});
} catch (const AutomationError&) {
    // The office has ended, and with it its documents.
}

void LibreOfficeHost::checkIsAlive() const {
    if (session_->process().isRunning()) return;
    throw AutomationError(kNotAvailable,
                          "LibreOffice ended unexpectedly. Changes that were not saved are lost.");
}

/// The clicks since the start of the office belong to the opening of the first document.
void LibreOfficeHost::beginOpening() {
    const std::uint32_t clicks = focus_->clicksBeside();
    if (call([this] { return frames_.front() != nullptr; })) clicksBeforeOpening_ = clicks;
}

void LibreOfficeHost::CreateNew(const std::string& programIdentifier) {
    beginOpening();
    if (programIdentifier == kExcelIdentifier) return closeAllBut(excel_->Workbooks()->Add({}));
    if (std::ranges::find(kWordIdentifiers, programIdentifier) != std::end(kWordIdentifiers))
        return closeAllBut(word_->Documents()->Add({}));
    throw AutomationError(kCommandFailed,
                          "LibreOffice knows no documents of the kind '" + programIdentifier + "'.");
}

void LibreOfficeHost::Open(const std::string& path, FileAccess access, const std::string& password) try {
    beginOpening();
    session_->files().setAccess(access);
    session_->files().setPassword(password);
    if (kindOf(path, kind_) == DocumentKind::Excel) return closeAllBut(excel_->Workbooks()->Open(path));
    closeAllBut(word_->Documents()->Open(path));
} catch (const AutomationError&) {
    // The frame that was made for the file must not cover the former document.
    (void)frames_.front();
    throw;
}

HostedDocument LibreOfficeHost::ActiveDocument() {
    if (edited_.index() != 0) return edited_;
    const DocumentReference shown = call([this] { return frames_.frontDocument(); });
    if (!shown.is()) return {};
    const std::vector<HostedDocument> all = openDocuments(*word_, *excel_);
    const auto found =
        std::ranges::find(all, shown, [](const HostedDocument& document) { return componentOf(document); });
    return found == all.end() ? HostedDocument() : *found;
}

bool LibreOfficeHost::hasOpenDialog() {
    return call([this] {
        const HostFrame* const frame = frames_.front();
        return frame != nullptr && frame->hasOpenDialog();
    });
}

bool LibreOfficeHost::isReadOnly() {
    return call([this] {
        const Reference<css::frame::XStorable> document(frames_.frontDocument(), UNO_QUERY);
        return document.is() && document->isReadonly();
    });
}

bool LibreOfficeHost::losesPassword(int format) {
    const HostedDocument hosted = ActiveDocument();
    return session_->files().losesPassword(componentOf(hosted), formatOf(hosted, format));
}

void LibreOfficeHost::ExportCopy(const std::string& path, int format) {
    const HostedDocument hosted = ActiveDocument();
    session_->files().exportCopy(componentOf(hosted), path, formatOf(hosted, format));
}

std::string LibreOfficeHost::exportedPackage() {
    const HostedDocument hosted = ActiveDocument();
    return filled_.packageOf(componentOf(hosted), kindOf(hosted));
}

void LibreOfficeHost::showPreview(DocumentKind kind, const std::string& bytes) {
    filled_.show(window_, bytes, kind);
    focus_->beginPreview();
}

void LibreOfficeHost::endPreview() {
    focus_->endPreview();
    filled_.end();
}

bool LibreOfficeHost::hasChangesToKeep() {
    return call([this] { return session_->files().hasChangesToKeep(frames_.frontDocument()); });
}

void LibreOfficeHost::keepCopy(const std::string& path) {
    session_->files().keepCopy(call([this] { return frames_.frontDocument(); }), path);
}

void LibreOfficeHost::closeAllBut(const HostedDocument& kept) {
    for (const HostedDocument& document : openDocuments(*word_, *excel_))
        if (document != kept) close(document);
    if (kept.index() == 0) return;
    call([&] {
        changes_->watch(componentOf(kept));
        if (const HostFrame* const frame = frames_.front()) frame->waitUntilNoticed();
    });
}

void LibreOfficeHost::endInput() {
    libreoffice::endInput(ActiveDocument());
}

std::vector<std::string> LibreOfficeHost::placeNames() {
    return call([this] { return HostPlaces(frames_.frontDocument()).names(); });
}

std::vector<std::string> LibreOfficeHost::placesAt(HostPoint point) {
    return call([&]() -> std::vector<std::string> {
        HostFrame* const frame = frames_.front();
        if (frame == nullptr || !frame->isLaidOut() || frame->hasOpenDialog()) return {};
        return HostPlaces(frame->document()).at(frame->caret().find(point), frame->uno()->getController());
    });
}

void LibreOfficeHost::showPlace(const std::string& name) {
    endInput();
    withFront([&](const HostFrame& frame) {
        HostPlaces(frame.document()).select(name, frame.uno()->getController());
    });
    focus([] { return true; });
}

void LibreOfficeHost::renamePlace(const std::string& name, const std::string& newName) {
    endInput();
    call([&] { HostPlaces(frames_.frontDocument()).rename(name, newName); });
}

void LibreOfficeHost::removePlace(const std::string& name) {
    endInput();
    call([&] { HostPlaces(frames_.frontDocument()).remove(name); });
}

void LibreOfficeHost::beginEditing() {
    const HostedDocument shown = ActiveDocument();
    windows_.waitForServer();
    setEnabled(shown, false);
    try {
        libreoffice::beginEditing(shown);
    } catch (const AutomationError&) {
        setEnabled(shown, true);
        throw;
    }
    edited_ = shown;
}

void LibreOfficeHost::endEditing() {
    const HostedDocument edited = std::exchange(edited_, {});
    windows_.waitForServer();
    try {
        libreoffice::endEditing(edited);
    } catch (const AutomationError&) {
        setEnabled(edited, true);
        throw;
    }
    setEnabled(edited, true);
}

/// Does not move the caret, which would lose the selection.
void LibreOfficeHost::showDropPlace(HostPoint point) {
    call([&] {
        HostFrame* const frame = frames_.front();
        if (frame == nullptr || frame->hasOpenDialog()) return;
        frame->waitForLayout();
        CaretTarget target = frame->caret().find(point);
        if (preview_.scroll(innerWindow(), point, frame->caret().documentArea())) {
            handleEvents();
            target = frame->caret().find(point);
        }
        preview_.show(innerWindow(), target);
        enterCells(*frame, target);
        if (preview_.restsOnTab(target))
            showSheet(frame->uno()->getController(), target.spot.object->getAccessibleName());
    });
}

void LibreOfficeHost::enterCells(const HostFrame& frame, const CaretTarget& target) {
    if (target.placement != CaretPlacement::InCells || !CaretPlacer::place(target)) return;
    deselectCells(session_->connection().context(), frame.uno()->getController());
}

bool LibreOfficeHost::placeCaret(HostPoint point) {
    preview_.hide();
    const CaretPlacement placement = call([&] {
        HostFrame* const frame = frames_.front();
        if (frame == nullptr) return CaretPlacement::Nowhere;
        frame->waitForLayout();
        const CaretTarget target = frame->caret().find(point);
        enterCells(*frame, target);
        const bool isPlaced = target.placement != CaretPlacement::InText || CaretPlacer::place(target);
        return isPlaced ? target.placement : CaretPlacement::Blank;
    });
    if (placement == CaretPlacement::Blank) clickBlank(point);
    return placement != CaretPlacement::Nowhere && placement != CaretPlacement::OnSheetTab;
}

void LibreOfficeHost::clickBlank(HostPoint point) {
    const auto caret = [&] {
        handleEvents();
        return CaretPlacer::nearestCaret(frames_.front()->caret().find(point));
    };
    clickUntilMoved(call(caret), [&] {
        windows_.click(innerWindow(), point);
        return call(caret);
    });
}

void LibreOfficeHost::handleEvents() {
    windows_.waitForServer();
    handlePendingEvents(session_->connection().context());
}

/// Lets the window take keys and clicks, or not. Word's object model does so itself, together with locking
/// the view: a call from this process would wait for the layout of later pages in between.
void LibreOfficeHost::setEnabled(const HostedDocument& hosted, bool enabled) {
    focus_->setEnabled(enabled);
    if (!std::holds_alternative<excel::WorkbookPtr>(hosted)) return;
    call([&] {
        // Input belongs to the state in which the user gave it.
        handleEvents();
        frames_.setEnabled(enabled);
    });
}

void LibreOfficeHost::resize(int width, int height) {
    window_.width = width;
    window_.height = height;
    call([&] {
        frames_.resize(width, height);
        if (HostFrame* const frame = filled_.frame()) frame->resize(width, height);
    });
}

/// The windows of the office keep the colors with which they were made, so the document gets new ones.
bool LibreOfficeHost::setLook(const HostLook& look) {
    if (look == window_.look) return true;
    if (hasOpenDialog()) return false;
    endInput();
    const bool hadKeyboard = windows_.hasKeyboard(innerWindow());
    window_.look = look;
    call([&] {
        changeLookSettings(session_->connection().context(), look);
        handleEvents();
    });
    call([this] { frames_.renewFront(window_); });
    if (hadKeyboard) focus([] { return true; });
    return true;
}

void LibreOfficeHost::focus(const std::function<bool()>& isWanted) {
    const std::uint32_t clicks = focus_->clicksBeside();
    giveKeyboard([&] { return focus_->clicksBeside() == clicks && isWanted(); });
}

void LibreOfficeHost::focusAgain(const std::function<bool()>& isWanted) {
    if (focus_->mayOfficeTakeKeyboard() && !hasOpenDialog()) focus(isWanted);
}

void LibreOfficeHost::focusOpened() {
    giveKeyboard([this] { return focus_->clicksBeside() == clicksBeforeOpening_; });
}

/// Waits for the window's focus first: an office that takes the focus earlier gives it away again. A busy
/// office may be so late that another window of ours has been opened.
void LibreOfficeHost::giveKeyboard(const std::function<bool()>& isWanted) {
    const xcb_window_t inner = innerWindow();
    if (inner == XCB_WINDOW_NONE || !isWanted()) return;
    const std::uint32_t clicks = focus_->clicksOnOffice();
    focus_->giveKeyboard(inner);
    call([&] {
        handleEvents();
        const HostFrame* const preview = filled_.frame();
        const HostFrame* const frame = preview != nullptr ? preview : frames_.front();
        if (frame != nullptr && isWanted() && !focus_->isKeyboardBeside()) frame->focus();
    });
    if (!isWanted() && focus_->clicksOnOffice() == clicks) focus_->takeKeyboard();
}

bool LibreOfficeHost::showsBookmarks() {
    return call([this] {
        const HostFrame* const frame = frames_.front();
        return frame != nullptr && frame->showsBookmarks();
    });
}

void LibreOfficeHost::setShowsBookmarks(bool shown) {
    marks_.setShown(shown);
    withFront([&](const HostFrame& frame) { frame.setShowsBookmarks(shown); });
    updateMarks();
}

/// During a preview they are below it.
void LibreOfficeHost::updateMarks() {
    const bool isPreviewing = call([this] { return filled_.frame() != nullptr; });
    if (!isPreviewing) marks_.update(innerWindow(), call([this] { return frames_.frontDocument(); }));
}

void LibreOfficeHost::setZoom(int percent) {
    withFront([&](HostFrame& frame) { frame.setZoom(percent); });
}

void LibreOfficeHost::setCommandBarVisible(const std::string& name, bool visible) {
    withFront([&](HostFrame& frame) { frame.setBarVisible(name, visible); });
}

std::string LibreOfficeHost::build() {
    return call([this] {
        const auto expander = css::util::theMacroExpander::get(session_->connection().context());
        return fromUno(expander->expandMacros("${$BRAND_BASE_DIR/program/versionrc:buildid}"));
    });
}

}  // namespace mergeloom::libreoffice
