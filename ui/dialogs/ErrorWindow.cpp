#include "ui/dialogs/ErrorWindow.h"

#include "ui/services/ProblemReport.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

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

constexpr int kReportWidth = 72;
constexpr int kLines = 22;

}  // namespace

ErrorWindow::ErrorWindow(QWidget* parent, const ErrorReport& error, ProblemReportDraft report)
    : QDialog(parent), report_(std::move(report)) {
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
    if (!path_) path_ = report_.save();
    ReportWindow(this, report_, *path_).exec();
}

ReportWindow::ReportWindow(QWidget* parent, const ProblemReportDraft& report, QString path)
    : QDialog(parent), report_(report), path_(std::move(path)) {
    setObjectName(QStringLiteral("reportWindow"));
    setWindowTitle(tr("Problem report"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeText(), 1);
    layout->addWidget(makePlace());
    layout->addWidget(makeButtons());
}

QWidget* ReportWindow::makeText() {
    auto* text = new QPlainTextEdit(report_.text);
    text->setObjectName(QStringLiteral("reportText"));
    text->setAccessibleName(tr("Problem report"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const QFontMetrics metrics = text->fontMetrics();
    text->setMinimumSize(metrics.averageCharWidth() * kReportWidth / 2, metrics.lineSpacing() * 4);
    resize(metrics.averageCharWidth() * kReportWidth, metrics.lineSpacing() * kLines);
    return text;
}

QWidget* ReportWindow::makePlace() {
    auto* place =
        new QLabel(path_.isEmpty() ? tr("The report could not be saved.") : tr("Saved as %1").arg(path_));
    place->setTextFormat(Qt::PlainText);
    place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    place->setWordWrap(true);
    return place;
}

QWidget* ReportWindow::makeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const QPushButton* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(report_.text); });
    QPushButton* mail = buttons->addButton(tr("&Write mail…"), QDialogButtonBox::ActionRole);
    mail->setObjectName(QStringLiteral("btnMail"));
    connect(mail, &QPushButton::clicked, this, [this] { writeMail(); });
    return buttons;
}

void ReportWindow::writeMail() {
    const std::string link =
        problemMailLink(report_.supportAddress.toStdString(), report_.text.toStdString());
    if (QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(link)))) return;
    QMessageBox::warning(
        this, windowTitle(),
        report_.supportAddress.isEmpty()
            ? tr("No mail program could be started.")
            : tr("No mail program could be started. The address is %1.").arg(report_.supportAddress));
}

}  // namespace mergeloom
