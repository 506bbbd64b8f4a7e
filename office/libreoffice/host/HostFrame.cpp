#include "office/libreoffice/host/HostFrame.h"

#include "office/libreoffice/host/WindowLook.h"
#include "office/libreoffice/session/PendingEvents.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XSystemChildFactory.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/Frame.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XDispatchProviderInterception.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/SystemDependent.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/URLTransformer.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/DocumentZoomType.hpp>
#include <com/sun/star/view/XViewSettingsSupplier.hpp>
#include <cppuhelper/implbase1.hxx>
#include <thread>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using Properties = Reference<css::beans::XPropertySet>;

constexpr std::chrono::seconds kBoundOfMoves{10};
constexpr std::chrono::milliseconds kPauseOfMoves{500};
constexpr std::chrono::milliseconds kPauseOfEvents{5};
constexpr std::chrono::seconds kBoundOfLayout{10};
constexpr std::chrono::milliseconds kPauseOfLayout{10};
constexpr int kMaxRoundsWithoutRoom = 20;
constexpr const char* kMarks = "ShowNonprintingCharacters";
constexpr const char* kBookmarks = "ShowBookmarks";
/// The marks that Writer shows besides bookmarks while it shows marks at all.
constexpr const char* kOtherMarks[] = {"ShowParaBreaks", "ShowSpaces",          "ShowTabstops",
                                       "ShowBreaks",     "ShowProtectedSpaces", "ShowSoftHyphens"};

bool isOn(const Properties& settings, const char* name) {
    bool isOn = false;
    settings->getPropertyValue(OUString::createFromAscii(name)) >>= isOn;
    return isOn;
}

void turn(const Properties& settings, const char* name, bool on) {
    settings->setPropertyValue(OUString::createFromAscii(name), css::uno::Any(on));
}

void turnOtherMarks(const Properties& settings, bool on) {
    for (const char* const mark : kOtherMarks)
        turn(settings, mark, on);
}

/// Notes whether a command may be given.
class StatusListener final : public cppu::WeakImplHelper1<css::frame::XStatusListener> {
  public:
    [[nodiscard]] bool isEnabled() const { return isEnabled_; }

    void SAL_CALL statusChanged(const css::frame::FeatureStateEvent& state) override {
        isEnabled_ = state.IsEnabled;
    }
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

  private:
    std::atomic<bool> isEnabled_ = true;
};

css::util::URL commandOf(const Reference<css::uno::XComponentContext>& office, const char* name) {
    css::util::URL command;
    command.Complete = OUString::createFromAscii(name);
    css::util::URLTransformer::create(office)->parseStrict(command);
    return command;
}

bool hasBookmarks(const Properties& settings) {
    return settings.is() &&
           settings->getPropertySetInfo()->hasPropertyByName(OUString::createFromAscii(kBookmarks));
}

/// Fits the page to the width of the window, also when the window is resized later. Returns true if the zoom
/// is then below the given one, and false for a workbook, whose view has no pages.
bool isPageWiderThanWindow(const Properties& settings, int percent) {
    if (!hasBookmarks(settings)) return false;
    settings->setPropertyValue("ZoomType", css::uno::Any(css::view::DocumentZoomType::PAGE_WIDTH));
    sal_Int16 fitting = 0;
    settings->getPropertyValue("ZoomValue") >>= fitting;
    return fitting < percent;
}

/// Returns the office's name for a bar under Word's name; empty if it has none.
std::string barOf(const std::string& name, DocumentKind kind) {
    if (name == "Standard") return "standardbar";
    if (name != "Formatting") return {};
    return kind == DocumentKind::Word ? "textobjectbar" : "formatobjectbar";
}

}  // namespace

HostFrame::HostFrame(OfficeConnection& connection, const WindowSystem& windows, const HostWindow& window,
                     CommandSink commands)
    : office_(connection.context()),
      windows_(windows),
      embedWindow_(windows, window),
      quit_(commandOf(connection.context(), ".uno:Quit")),
      interceptor_(new CommandInterceptor(std::move(commands))) {
    const Reference<css::awt::XSystemChildFactory> factory(css::awt::Toolkit::create(connection.context()),
                                                           UNO_QUERY_THROW);
    const css::uno::Any parent(static_cast<sal_Int64>(embedWindow_.id()));
    container_.set(factory->createSystemChild(parent, {}, css::lang::SystemDependent::SYSTEM_XWINDOW),
                   UNO_QUERY_THROW);
    caret_.emplace(container_);
    applyLook(container_, window.look);
    resize(window.width, window.height);
    frame_.set(css::frame::Frame::create(connection.context()), UNO_QUERY_THROW);
    frame_->initialize(container_);
    connection.desktop()->getFrames()->append(frame_);
    const Reference<css::frame::XDispatchProviderInterception> commandsOfFrame(frame_, UNO_QUERY_THROW);
    commandsOfFrame->registerDispatchProviderInterceptor(interceptor_.get());
    container_->setVisible(true);
    // A window that is moved before it was shown stays blank.
    embedWindow_.moveIntoHost();
    waitUntilNoticed();
}

/// The office paints nothing until it has noticed that its parent window is visible, and treats its own
/// window as empty until then. It notices it by the events of the move, some of which it loses. Waits for a
/// limited time: a window that stays blank is better than a program that hangs.
void HostFrame::waitUntilNoticed() const {
    if (width_ <= 0 || height_ <= 0) return;
    const auto first = std::chrono::steady_clock::now();
    auto nextMove = first + kPauseOfMoves;
    while (container_->getPosSize().Width == 0 && std::chrono::steady_clock::now() < first + kBoundOfMoves) {
        handlePendingEvents(office_);
        std::this_thread::sleep_for(kPauseOfEvents);
        if (std::chrono::steady_clock::now() < nextMove) continue;
        embedWindow_.moveIntoHost();
        nextMove += kPauseOfMoves;
    }
}

DocumentReference HostFrame::document() const try {
    const Reference<css::frame::XController> controller = frame_->getController();
    return controller.is() ? DocumentReference(controller->getModel(), UNO_QUERY) : DocumentReference();
} catch (const css::lang::DisposedException&) {
    return {};
}

DocumentKind HostFrame::kind() const {
    const Reference<css::sheet::XSpreadsheetView> cells(frame_->getController(), UNO_QUERY);
    return cells.is() ? DocumentKind::Excel : DocumentKind::Word;
}

/// The loader shows a document that is open already if it is called with the document instead of an address.
/// The document is open as long as one of its frames is.
void HostFrame::takeDocument(const HostFrame& former) {
    const Reference<css::frame::XController> view = former.frame_->getController();
    const Reference<css::frame::XModel> model = view->getModel();
    const css::uno::Any state = view->getViewData();
    const bool showsMarks = former.showsBookmarks();
    css::beans::PropertyValue document;
    document.Name = "Model";
    document.Value <<= model;
    const Reference<css::frame::XComponentLoader> loader(frame_, UNO_QUERY_THROW);
    loader->loadComponentFromURL("private:object", "_self", 0, {&document, 1});
    Reference<css::util::XCloseable>(former.frame_, UNO_QUERY_THROW)->close(false);
    model->setCurrentController(frame_->getController());
    frame_->getController()->restoreViewData(state);
    setShowsBookmarks(showsMarks);
    beginLayout();
}

/// The command that ends the office is disabled exactly while a modal dialog is open. A new listener receives
/// the current status at once.
bool HostFrame::hasOpenDialog() const {
    const Reference<css::frame::XDispatch> quitting =
        interceptor_->getSlaveDispatchProvider()->queryDispatch(quit_, {}, 0);
    if (!quitting.is()) return false;
    const rtl::Reference<StatusListener> status(new StatusListener);
    quitting->addStatusListener(status.get(), quit_);
    quitting->removeStatusListener(status.get(), quit_);
    return !status->isEnabled();
}

void HostFrame::beginLayout() {
    caret_->forget();
    isLaidOut_ = false;
    roundsWithoutRoom_ = 0;
}

void HostFrame::resize(int width, int height) {
    beginLayout();
    width_ = width;
    height_ = height;
    fillWindow();
}

void HostFrame::fillWindow() const {
    container_->setPosSize(0, 0, width_, height_, css::awt::PosSize::POSSIZE);
    embedWindow_.resize(width_, height_);
}

/// Waits for a limited time, and once after each change: a view may never be laid out.
void HostFrame::waitForLayout() {
    const auto last = std::chrono::steady_clock::now() + kBoundOfLayout;
    while (!isLaidOut_ && std::chrono::steady_clock::now() < last) {
        windows_.waitForServer();
        handlePendingEvents(office_);
        if (!layOut()) std::this_thread::sleep_for(kPauseOfLayout);
    }
    isLaidOut_ = true;
}

/// Lays out the bars and the document; returns false while the office does not yet have the size of the
/// window. The office lays out by itself some time after a change. If it is slow to handle the events of the
/// window system, an earlier size may replace the newest one. It lays out nothing if the window has no room
/// for a document.
bool HostFrame::layOut() {
    const css::awt::Rectangle size = container_->getPosSize();
    if (size.Width != width_ || size.Height != height_) {
        fillWindow();
        return false;
    }
    layoutManager()->doLayout();
    const css::awt::Rectangle document = frame_->getComponentWindow()->getPosSize();
    const bool fits = document.X + document.Width <= width_ && document.Y + document.Height <= height_;
    isLaidOut_ = fits || ++roundsWithoutRoom_ == kMaxRoundsWithoutRoom;
    return isLaidOut_;
}

Reference<css::frame::XLayoutManager> HostFrame::layoutManager() const {
    const Properties properties(frame_, UNO_QUERY_THROW);
    return {properties->getPropertyValue("LayoutManager"), UNO_QUERY_THROW};
}

/// Returns none for a view that has no settings of that kind.
Properties HostFrame::viewSettings() const {
    const Reference<css::view::XViewSettingsSupplier> supplier(frame_->getController(), UNO_QUERY);
    if (supplier.is()) return supplier->getViewSettings();
    return {frame_->getController(), UNO_QUERY};
}

bool HostFrame::showsBookmarks() const {
    const Properties settings = viewSettings();
    return hasBookmarks(settings) && isOn(settings, kMarks) && isOn(settings, kBookmarks);
}

/// Writer shows bookmarks only while it shows marks. When the user does not want to see those, the other
/// marks are hidden meanwhile.
void HostFrame::setShowsBookmarks(bool shown) const {
    const Properties settings = viewSettings();
    if (!hasBookmarks(settings)) return;
    const bool showsMarks = isOn(settings, kMarks);
    turn(settings, kBookmarks, shown);
    if (shown == showsMarks) return;
    if (shown) {
        turnOtherMarks(settings, false);
        return turn(settings, kMarks, true);
    }
    const bool showsOthers =
        std::ranges::any_of(kOtherMarks, [&](const char* mark) { return isOn(settings, mark); });
    if (showsOthers) return;
    turn(settings, kMarks, false);
    turnOtherMarks(settings, true);
}

void HostFrame::setZoom(int percent) {
    const Properties settings = viewSettings();
    if (!settings.is()) return;
    if (!isPageWiderThanWindow(settings, percent)) {
        settings->setPropertyValue("ZoomType", css::uno::Any(css::view::DocumentZoomType::BY_VALUE));
        settings->setPropertyValue("ZoomValue", css::uno::Any(static_cast<sal_Int16>(percent)));
    }
    beginLayout();
}

void HostFrame::setBarVisible(const std::string& name, bool visible) {
    const std::string bar = barOf(name, kind());
    if (bar.empty()) return;
    const Reference<css::frame::XLayoutManager> layout = layoutManager();
    const OUString address = toUno("private:resource/toolbar/" + bar);
    if (visible) {
        layout->createElement(address);
        layout->showElement(address);
    } else {
        layout->hideElement(address);
    }
    beginLayout();
}

}  // namespace mergeloom::libreoffice
