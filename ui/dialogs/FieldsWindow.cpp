#include "ui/dialogs/FieldsWindow.h"

#include "base/Trap.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>
#include <cmath>

namespace mergeloom {

namespace {

/// Lengths of the window as it was drawn, in twips, 1440 to an inch.
constexpr QSize kClient(4830, 3780);
constexpr QSize kList(3315, 3660);
constexpr QSize kButton(1215, 375);
constexpr double kTwipsOfInch = 1440;

/// At the screen's resolution; larger writing gets larger controls by their own hints.
QSize pixels(const QWidget& widget, QSize twips) {
    const QScreen* screen = widget.screen();
    return {static_cast<int>(std::lround(twips.width() * screen->logicalDotsPerInchX() / kTwipsOfInch)),
            static_cast<int>(std::lround(twips.height() * screen->logicalDotsPerInchY() / kTwipsOfInch))};
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
    setUpLayout();
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
    QPushButton* insertButton = addButton("btnInsert", tr("&Insert"), tr("Insert"));
    insertButton->setDefault(true);
    connect(insertButton, &QPushButton::clicked, this, [this] { insert(); });
    connect(addButton("btnUp", tr("&Up"), tr("Up")), &QPushButton::clicked, this,
            [this] { model_.moveCurrent(true); });
    connect(addButton("btnDown", tr("&Down "), tr("Down")), &QPushButton::clicked, this,
            [this] { model_.moveCurrent(false); });
    connect(addButton("btnSelect", tr("&Select All"), tr("Select All")), &QPushButton::clicked, this,
            [this] { model_.selectAll(true); });
    connect(addButton("btnUnSelect", tr("U&nselect All"), tr("Unselect All")), &QPushButton::clicked, this,
            [this] { model_.selectAll(false); });
}

QPushButton* FieldsWindow::addButton(const char* name, const QString& caption,
                                     const QString& accessibleName) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(accessibleName);
    button->setAutoDefault(false);
    button->setMinimumSize(pixels(*this, kButton));
    buttons_ += button;
    return button;
}

void FieldsWindow::setUpLayout() {
    auto* column = new QVBoxLayout;
    for (QPushButton* button : buttons_)
        column->addWidget(button);
    column->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(lstFields_, 1);
    layout->addLayout(column);
    const QSize list = pixels(*this, kList);
    const QSize client = pixels(*this, kClient);
    const int margin = (client.height() - list.height()) / 2;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(client.width() - list.width() - pixels(*this, kButton).width() - 2 * margin);
    resize(client.expandedTo(sizeHint()));
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
