#include "ui/dialogs/FieldsWindow.h"

#include "base/ErrorHandler.h"
#include "ui/dialogs/WindowPlacement.h"

#include <QScreen>
#include <QStyle>
#include <cmath>

namespace mergeloom {

namespace {

/// The size in which the window was designed, in twips, 1440 to an inch.
constexpr QRect kClient(0, 0, 4830, 3780);
constexpr QRect kList(60, 60, 3315, 3660);
constexpr QRect kInsert(3480, 120, 1215, 375);
constexpr QRect kUp(3480, 1620, 1215, 375);
constexpr QRect kDown(3480, 2100, 1215, 375);
constexpr QRect kSelect(3480, 2820, 1215, 375);
constexpr QRect kUnSelect(3480, 3300, 1215, 375);
constexpr double kTwipsOfInch = 1440;
/// The space between a caption and the edge of its button, in pixels.
constexpr QSize kPadding(4, 2);

int scaled(int twips, double dotsPerInch) {
    return static_cast<int>(std::lround(twips * dotsPerInch / kTwipsOfInch));
}

}  // namespace

int FieldListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : fields_.ListCount();
}

QVariant FieldListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const FieldSelection::Item& item = fields_.items().at(static_cast<std::size_t>(index.row()));
    // The list may be too narrow for a long name.
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return QString::fromStdString(item.text);
    if (role == Qt::CheckStateRole) return item.selected ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool FieldListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) return false;
    fields_.SetSelected(index.row(), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

Qt::ItemFlags FieldListModel::flags(const QModelIndex& index) const {
    // A row accepts no drop itself, so dragged rows fall between two rows.
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

bool FieldListModel::moveRows(const QModelIndex& sourceParent, int source, int count,
                              const QModelIndex& destinationParent, int destination) {
    const bool isOneRow = count == 1 && source >= 0 && source < fields_.ListCount();
    // A view counts rows as before the move: a row that is dropped after itself stays.
    const int target = destination > source ? destination - 1 : destination;
    if (!isOneRow || fields_.SelCount() == 0 || target == source) return false;
    if (!beginMoveRows(sourceParent, source, source, destinationParent, destination)) return false;
    fields_.SetListIndex(source);
    for (int steps = std::abs(target - source); steps > 0; --steps)
        MoveListItem(target < source);
    endMoveRows();
    return true;
}

void FieldListModel::moveCurrent(bool up) {
    const int row = fields_.ListIndex();
    const bool staysInside = up ? row > 0 : row >= 0 && row + 1 < fields_.ListCount();
    if (staysInside) moveRows({}, row, 1, {}, up ? row - 1 : row + 2);
}

void FieldListModel::selectAll(bool selected) {
    fields_.SelectAll(selected);
    if (fields_.ListCount() > 0) Q_EMIT dataChanged(index(0), index(fields_.ListCount() - 1));
}

void FieldListModel::MoveListItem(bool up) {
    trap(errors_, "frmFields", "MoveListItem", [&] { fields_.MoveListItem(up); });
}

FieldsWindow::FieldsWindow(QWidget* parent, FieldSelection& fields, ErrorHandler& errors)
    : QDialog(parent),
      fields_(fields),
      errors_(errors),
      model_(fields, errors),
      lstFields_(new QListView(this)) {
    setObjectName(QStringLiteral("frmFields"));
    const QString object = QString::fromStdString(fields.object());
    setWindowTitle(object.isEmpty() ? tr("Select Fields") : tr("Select Fields - %1").arg(object));
    setUpList();
    setUpButtons();
    setMinimumSize(pixels(kClient).size());
    resize(minimumSize());
}

void FieldsWindow::keepVisible(const QPoint& place) {
    // The window system adds the frame; its size is known only when the window is shown.
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    QRect window(QPoint(), size() + QSize(0, title));
    if (const QWidget* const owner = parentWidget()) {
        window.moveCenter(owner->window()->frameGeometry().center());
    } else {
        window.moveCenter(screen()->availableGeometry().center());
    }
    move(placeBeside(window, place, screen()->availableGeometry()));
}

void FieldsWindow::setUpList() {
    lstFields_->setObjectName(QStringLiteral("lstFields"));
    lstFields_->setAccessibleName(tr("Fields"));
    lstFields_->setModel(&model_);
    lstFields_->setDragDropMode(QListView::InternalMove);
    lstFields_->setDefaultDropAction(Qt::MoveAction);
    showCurrent();
    connect(lstFields_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { fields_.SetListIndex(current.row()); });
    connect(&model_, &FieldListModel::rowsMoved, this, [this] { showCurrent(); });
}

void FieldsWindow::setUpButtons() {
    QPushButton* insertButton = addButton("btnInsert", tr("&Insert"), kInsert);
    insertButton->setDefault(true);
    connect(insertButton, &QPushButton::clicked, this, &FieldsWindow::insert);
    connect(addButton("btnUp", tr("&Up"), kUp), &QPushButton::clicked, this, &FieldsWindow::btnUp_Click);
    connect(addButton("btnDown", tr("&Down "), kDown), &QPushButton::clicked, this,
            &FieldsWindow::btnDown_Click);
    connect(addButton("btnSelect", tr("&Select All"), kSelect), &QPushButton::clicked, this,
            &FieldsWindow::btnSelect_Click);
    connect(addButton("btnUnSelect", tr("U&nselect All"), kUnSelect), &QPushButton::clicked, this,
            &FieldsWindow::btnUnSelect_Click);
}

QPushButton* FieldsWindow::addButton(const char* name, const QString& caption, const QRect& place) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QString(caption).remove(u'&').trimmed());
    button->setAutoDefault(false);
    buttons_ += {button, place};
    return button;
}

QSizeF FieldsWindow::dotsPerInch() const {
    QSizeF resolution(screen()->logicalDotsPerInchX(), screen()->logicalDotsPerInchY());
    for (const PlacedButton& placed : buttons_) {
        const QString caption = placed.button->text();
        const QSizeF needed = placed.button->fontMetrics().size(Qt::TextShowMnemonic, caption) + 2 * kPadding;
        resolution = resolution.expandedTo({needed.width() * kTwipsOfInch / placed.place.width(),
                                            needed.height() * kTwipsOfInch / placed.place.height()});
    }
    return resolution;
}

QRect FieldsWindow::pixels(const QRect& twips) const {
    const QSizeF resolution = dotsPerInch();
    return {scaled(twips.x(), resolution.width()), scaled(twips.y(), resolution.height()),
            scaled(twips.width(), resolution.width()), scaled(twips.height(), resolution.height())};
}

/// Gives the list all space beyond the designed size.
void FieldsWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const QSize extra = size() - pixels(kClient).size();
    const auto visual = [this](const QRect& place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    const QRect list = pixels(kList);
    lstFields_->setGeometry(visual({list.topLeft(), list.size() + extra}));
    for (const PlacedButton& placed : buttons_)
        placed.button->setGeometry(visual(pixels(placed.place).translated(extra.width(), 0)));
}

void FieldsWindow::btnUp_Click() {
    model_.moveCurrent(true);
}

void FieldsWindow::btnDown_Click() {
    model_.moveCurrent(false);
}

void FieldsWindow::btnSelect_Click() {
    model_.selectAll(true);
}

void FieldsWindow::btnUnSelect_Click() {
    model_.selectAll(false);
}

void FieldsWindow::insert() {
    // An error must not leave through the event loop.
    trap(errors_, "frmFields", "mbtnInsert_Click", [this] { fields_.Insert(); });
    if (!fields_.Visible()) accept();
}

void FieldsWindow::showCurrent() {
    lstFields_->setCurrentIndex(model_.index(fields_.ListIndex()));
}

}  // namespace mergeloom
