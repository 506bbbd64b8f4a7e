#include "ui/dialogs/ReportWindow.h"

#include "ui/services/ProblemReport.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace mergeloom {

namespace {

constexpr int kReportWidth = 72;
constexpr int kLines = 22;

}  // namespace

ReportWindow::ReportWindow(QWidget* parent, const KeptReport& report) : QDialog(parent), report_(report) {
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
    auto* place = new QLabel(report_.path.isEmpty() ? tr("The report could not be saved.")
                                                    : tr("Saved as %1").arg(report_.path));
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
    if (report_.supportAddress.isEmpty()) return buttons;
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
        tr("No mail program could be started. The address is %1.").arg(report_.supportAddress));
}

}  // namespace mergeloom
