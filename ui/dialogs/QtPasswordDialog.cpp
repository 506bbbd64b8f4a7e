#include "ui/dialogs/QtPasswordDialog.h"

#include "base/Paths.h"
#include "ui/dialogs/DialogOwner.h"
#include "ui/services/GuiThread.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace mergeloom {

namespace {

QString text(const char* english) {
    return QCoreApplication::translate("QtPasswordDialog", english);
}

QString sentenceFor(const std::string& path, PasswordAttempt attempt) {
    const QString name = QString::fromStdString(fileNameOnly(path));
    if (attempt == PasswordAttempt::Again)
        return text("This is not the password of “%1”. Passwords differ in capital and small letters.")
            .arg(name);
    return text("“%1” is protected by a password.").arg(name);
}

/// The window with the entry of a password.
class PasswordWindow final : public QDialog {
  public:
    PasswordWindow(QWidget* owner, const std::string& path, PasswordAttempt attempt);

    [[nodiscard]] std::string password() const { return entry_->text().toStdString(); }

  private:
    QLineEdit* entry_;
};

PasswordWindow::PasswordWindow(QWidget* owner, const std::string& path, PasswordAttempt attempt)
    : QDialog(owner), entry_(new QLineEdit(this)) {
    setWindowTitle(text("Password"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const sentence = new QLabel(sentenceFor(path, attempt), this);
    // Names of files may contain markup.
    sentence->setTextFormat(Qt::PlainText);
    sentence->setWordWrap(true);
    sentence->setToolTip(QString::fromStdString(path));
    auto* const label = new QLabel(text("&Password:"), this);
    label->setBuddy(entry_);
    entry_->setObjectName(QStringLiteral("password"));
    entry_->setEchoMode(QLineEdit::Password);
    entry_->setAccessibleDescription(sentence->text());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(entry_, &QLineEdit::textChanged, ok,
            [ok](const QString& entered) { ok->setEnabled(!entered.isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const rows = new QVBoxLayout(this);
    for (QWidget* const widget : std::initializer_list<QWidget*>{sentence, label, entry_, buttons})
        rows->addWidget(widget);
    constexpr int kColumns = 45;
    setMinimumWidth(fontMetrics().averageCharWidth() * kColumns);
    entry_->setFocus();
}

}  // namespace

std::optional<std::string> QtPasswordDialog::ask(const std::string& path, PasswordAttempt attempt) {
    std::optional<std::string> password;
    callOnGuiThread([&] {
        PasswordWindow window(ownerOfDialog(owner_), path, attempt);
        if (window.exec() == QDialog::Accepted) password = window.password();
    });
    return password;
}

}  // namespace mergeloom
