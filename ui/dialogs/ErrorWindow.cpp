#include "ui/dialogs/ErrorWindow.h"

#include "ui/dialogs/ReportWindow.h"
#include "ui/services/ProblemReport.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace mergeloom {

namespace {

constexpr int kCharactersInLine = 50;
/// A longer text would make the window higher than the screen; the report has all of it.
constexpr int kMaxCharacters = 600;

QLabel* makeText(const QString& text) {
    const bool isWhole = text.size() <= kMaxCharacters;
    auto* label = new QLabel(isWhole ? text : text.left(kMaxCharacters) + QChar(u'…'));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * kCharactersInLine);
    return label;
}

}  // namespace

ErrorWindow::ErrorWindow(QWidget* parent, const ErrorReport& error, const KeptReport& report)
    : QDialog(parent), report_(report) {
    setObjectName(QStringLiteral("errorWindow"));
    setWindowTitle(QStringLiteral("Mergeloom"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeMessage(error));
    layout->addWidget(makeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QLayout* ErrorWindow::makeMessage(const ErrorReport& error) {
    auto* icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(size));
    icon->setAccessibleName(tr("Error"));
    auto* layout = new QHBoxLayout;
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addLayout(makeDetails(error), 1);
    return layout;
}

/// Shows a line for each known fact.
QLayout* ErrorWindow::makeDetails(const ErrorReport& error) {
    QLabel* description = makeText(QString::fromStdString(error.description));
    description->setObjectName(QStringLiteral("description"));
    auto* details = new QFormLayout;
    details->addRow(description);
    const auto addDetail = [&](const QString& name, const std::string& value) {
        if (!value.empty()) details->addRow(name, makeText(QString::fromStdString(value)));
    };
    addDetail(tr("Number:"), error.number == 0 ? std::string() : shownErrorNumber(error.number));
    addDetail(tr("Module:"), error.module);
    addDetail(tr("Procedure:"), error.procedure);
    addDetail(tr("Place:"), error.place);
    addDetail(tr("Working on:"), error.comment);
    return details;
}

QWidget* ErrorWindow::makeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QPushButton* report = buttons->addButton(tr("&Problem report…"), QDialogButtonBox::ActionRole);
    report->setObjectName(QStringLiteral("btnReport"));
    report->setAutoDefault(false);
    connect(report, &QPushButton::clicked, this, [this] { showReport(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    return buttons;
}

void ErrorWindow::showReport() {
    ReportWindow(this, report_).exec();
}

}  // namespace mergeloom
