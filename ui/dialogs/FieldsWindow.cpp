#include "ui/dialogs/FieldsWindow.h"

#include "base/Trap.h"

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

FieldsWindow::FieldsWindow(QWidget* parent, FieldSelection& fields, ErrorHandler& errors)
    : QDialog(parent),
      fields_(fields),
      errors_(errors),
      model_(fields, errors),
      lstFields_(new QListView(this)) {
    setObjectName(QStringLiteral("frmFields"));
    setWindowTitle(tr("Select Fields"));
    setUpList();
    setUpButtons();
    setMinimumSize(pixels(kClient).size());
    resize(minimumSize());
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
