#include "ui/designer/HostArea.h"

#include "ui/designer/DesktopLook.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

namespace mergeloom {

namespace {

using namespace std::chrono_literals;

constexpr auto kDragInterval = 50ms;
/// The interval of the polls. A mouse that is at the same point in two polls rests.
constexpr std::chrono::milliseconds kPointerInterval{300};
constexpr auto kMinSizeInterval = 50ms;

/// Returns true if a drag comes from the tree: those of this program have the source's widget.
bool isFromTree(const QDropEvent& event) {
    return event.source() != nullptr && event.mimeData()->hasText();
}

int pixels(double length) {
    return static_cast<int>(length);
}

}  // namespace

HostPane::HostPane(QWidget* parent) : QWidget(parent) {
    // The office paints here; the windows around are still painted by the toolkit.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    // Tab would lead into the document and not out of it again.
    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
    setAccessibleName(tr("Document"));
    setAccessibleDescription(tr("The template, edited in the office. Fields are dropped here."));
    resizeTimer_.setSingleShot(true);
    resizeTimer_.setInterval(kMinSizeInterval);
    connect(&resizeTimer_, &QTimer::timeout, this, &HostPane::emitSize);
    dragTimer_.setInterval(kDragInterval);
    connect(&dragTimer_, &QTimer::timeout, this, &HostPane::emitDragPoint);
    connect(&pointerTimer_, &QTimer::timeout, this, &HostPane::watchPointer);
    pointerTimer_.start(kPointerInterval);
}

HostWindow HostPane::hostWindow() const {
    const double scale = devicePixelRatioF();
    return {winId(), pixels(width() * scale), pixels(height() * scale), lookOf(*this)};
}

void HostPane::emitSize() {
    resizeTimer_.stop();
    const HostWindow window = hostWindow();
    Q_EMIT resized(window.width, window.height);
}

/// Returns the point in the pane of the current size, which the office has to know before.
std::optional<HostPoint> HostPane::takeDropPoint() {
    if (resizeTimer_.isActive()) emitSize();
    return std::exchange(dropPoint_, std::nullopt);
}

HostPoint HostPane::pixelsAt(QPointF position) const {
    const double scale = devicePixelRatioF();
    return {pixels(position.x() * scale), pixels(position.y() * scale)};
}

QPoint HostPane::onScreen(HostPoint point) const {
    return mapToGlobal(QPointF(point.x, point.y) / devicePixelRatioF()).toPoint();
}

void HostPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool isOfLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (isOfLook) Q_EMIT lookChanged(lookOf(*this));
}

void HostPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!resizeTimer_.isActive()) resizeTimer_.start();
}

void HostPane::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    event->reason() == Qt::ActiveWindowFocusReason ? Q_EMIT returned() : Q_EMIT focused();
}

/// A menu and another window give the focus back to the pane.
void HostPane::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    const bool isKept = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                        reason == Qt::MenuBarFocusReason;
    if (!isKept) Q_EMIT left();
}

void HostPane::dragEnterEvent(QDragEnterEvent* event) {
    if (!isFromTree(*event)) return;
    dropPoint_.reset();
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HostPane::dragMoveEvent(QDragMoveEvent* event) {
    if (!isFromTree(*event)) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    dragPoint_ = pixelsAt(event->position());
    if (dragTimer_.isActive()) return;
    emitDragPoint();
    dragTimer_.start();
}

void HostPane::emitDragPoint() {
    if (dragPoint_) Q_EMIT draggedOver(*dragPoint_);
}

/// Polls the position of the mouse, since its moves over the document go to the office.
void HostPane::watchPointer() {
    const QPoint pointer = QCursor::pos();
    const bool moved = std::exchange(pointer_, pointer) != pointer;
    const QPoint inside = mapFromGlobal(pointer);
    const bool isOver = isVisible() && isActiveWindow() && !dragPoint_ && rect().contains(inside);
    if (isResting_ && (moved || !isOver)) {
        isResting_ = false;
        Q_EMIT restEnded();
    } else if (!isResting_ && !moved && isOver) {
        isResting_ = true;
        Q_EMIT rested(pixelsAt(inside));
    }
}

void HostPane::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    endDrag();
}

void HostPane::endDrag() {
    dragTimer_.stop();
    dragPoint_.reset();
    Q_EMIT dragLeft();
}

/// The drop itself waits for the end of the drag, whose own event loop still runs here.
void HostPane::dropEvent(QDropEvent* event) {
    if (!isFromTree(*event)) return;
    endDrag();
    dropPoint_ = pixelsAt(event->position());
    setFocus(Qt::OtherFocusReason);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

OfficePanel::OfficePanel(QWidget* parent)
    : QWidget(parent),
      sentence_(new QLabel(this)),
      progress_(new QProgressBar(this)),
      cmdCancel_(new QPushButton(tr("&Cancel"), this)),
      cmdStart_(new QPushButton(tr("Start &again"), this)) {
    // A widget over a native window has to be native, too.
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_NativeWindow);
    setAutoFillBackground(true);
    sentence_->setWordWrap(true);
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    connect(cmdCancel_, &QPushButton::clicked, this, &OfficePanel::cancelRequested);
    connect(cmdStart_, &QPushButton::clicked, this, &OfficePanel::startRequested);

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdCancel_);
    buttons->addWidget(cmdStart_);
    buttons->addStretch();
    auto* const lines = new QVBoxLayout(this);
    lines->addStretch();
    lines->addWidget(sentence_);
    lines->addWidget(progress_);
    lines->addLayout(buttons);
    lines->addStretch();
}

void OfficePanel::showStarting() {
    showProgress(tr("The office is starting…"), true);
}

void OfficePanel::showOpening() {
    showProgress(tr("The template is being opened…"), false);
}

void OfficePanel::showProgress(const QString& sentence, bool canBeCancelled) {
    sentence_->setText(sentence);
    progress_->setAccessibleName(sentence);
    progress_->show();
    cmdCancel_->setVisible(canBeCancelled);
    cmdStart_->hide();
}

void OfficePanel::showStopped(const QString& sentence) {
    sentence_->setText(sentence);
    progress_->hide();
    cmdCancel_->hide();
    cmdStart_->show();
}

HostArea::HostArea(QWidget* parent)
    : QWidget(parent), pane_(new HostPane(this)), panel_(new OfficePanel(this)) {
    setPanelVisible(true);
}

void HostArea::setPanelVisible(bool visible) {
    panel_->setVisible(visible);
    if (visible) panel_->raise();
}

QSize HostArea::minimumSizeHint() const {
    return panel_->minimumSizeHint();
}

void HostArea::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    pane_->setGeometry(rect());
    panel_->setGeometry(rect());
}

}  // namespace mergeloom
