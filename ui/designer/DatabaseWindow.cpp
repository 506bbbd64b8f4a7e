#include "ui/designer/DatabaseWindow.h"

#include "base/ConnectionString.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kColumns = 70;

bool isOdbc(const QString& source) {
    return isOdbcSource(source.toStdString());
}

}  // namespace

DatabaseWindow::DatabaseWindow(QWidget* owner, Questions questions, const QString& program)
    : QDialog(owner),
      questions_(std::move(questions)),
      process_(program),
      source_(new QLineEdit(this)),
      browse_(new QPushButton(tr("&Browse…"), this)),
      read_(new QPushButton(tr("Rea&d"), this)),
      passwordLabel_(new QLabel(tr("&Password:"), this)),
      password_(new QLineEdit(this)),
      all_(new QCheckBox(tr("&All objects"), this)),
      objects_(new QListWidget(this)),
      records_(new QComboBox(this)),
      value_(new QLineEdit(this)),
      bar_(new QProgressBar(this)),
      message_(new QLabel(this)),
      ok_(nullptr) {
    setWindowTitle(tr("Open Database"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    makeSourceRow();
    makeObjectList();
    makeRecordsRow();
    makeProgress();
    layOut();
    connectProcess();
    setMinimumWidth(fontMetrics().averageCharWidth() * kColumns);
    updateChoices();
    source_->setFocus();
}

void DatabaseWindow::makeSourceRow() {
    source_->setObjectName(QStringLiteral("source"));
    source_->setPlaceholderText(tr("a file, or odbc:DSN=shop"));
    source_->setAccessibleDescription(
        tr("A file of SQLite or Access, or a data source of ODBC: odbc:DSN=shop"));
    connect(source_, &QLineEdit::textEdited, this, &DatabaseWindow::forgetObjects);
    connect(browse_, &QPushButton::clicked, this, &DatabaseWindow::browse);
    connect(read_, &QPushButton::clicked, this, &DatabaseWindow::readObjects);
    password_->setEchoMode(QLineEdit::Password);
    password_->setPlaceholderText(tr("if the data source has none"));
    passwordLabel_->setBuddy(password_);
}

void DatabaseWindow::makeObjectList() {
    all_->setTristate(true);
    objects_->setObjectName(QStringLiteral("objects"));
    objects_->setAccessibleName(tr("Objects of the database"));
    // A click leads from partly checked to checked.
    connect(all_, &QCheckBox::clicked, this,
            [this] { checkAll(all_->checkState() == Qt::Unchecked ? Qt::Unchecked : Qt::Checked); });
    connect(objects_, &QListWidget::itemChanged, this, &DatabaseWindow::updateChoices);
}

void DatabaseWindow::makeRecordsRow() {
    records_->addItems({tr("None"), tr("All"), tr("The first"), tr("Those with the value")});
    value_->setObjectName(QStringLiteral("records"));
    connect(records_, &QComboBox::currentIndexChanged, this, &DatabaseWindow::updateChoices);
    connect(value_, &QLineEdit::textChanged, this, &DatabaseWindow::updateChoices);
}

void DatabaseWindow::makeProgress() {
    bar_->setRange(0, 0);
    bar_->setAccessibleName(tr("Reading"));
    message_->setObjectName(QStringLiteral("message"));
    // Names of databases may contain markup.
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
}

void DatabaseWindow::layOut() {
    auto* const sourceRow = new QHBoxLayout;
    sourceRow->addWidget(source_, 1);
    sourceRow->addWidget(browse_);
    sourceRow->addWidget(read_);
    auto* const recordsRow = new QHBoxLayout;
    recordsRow->addWidget(records_);
    recordsRow->addWidget(value_, 1);
    auto* const form = new QFormLayout;
    auto* const sourceLabel = new QLabel(tr("Da&tabase:"), this);
    sourceLabel->setBuddy(source_);
    form->addRow(sourceLabel, sourceRow);
    form->addRow(passwordLabel_, password_);
    auto* const recordsLabel = new QLabel(tr("&Records:"), this);
    recordsLabel->setBuddy(records_);

    auto* const records = new QFormLayout;
    records->addRow(recordsLabel, recordsRow);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Open);
    connect(buttons, &QDialogButtonBox::accepted, this, &DatabaseWindow::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &DatabaseWindow::reject);
    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(form);
    rows->addWidget(all_);
    rows->addWidget(objects_, 1);
    rows->addLayout(records);
    rows->addWidget(bar_);
    rows->addWidget(message_);
    rows->addWidget(buttons);
}

void DatabaseWindow::connectProcess() {
    connect(&process_, &DescribeProcess::listed, this, &DatabaseWindow::showObjects);
    connect(&process_, &DescribeProcess::advanced, this, [this](qint64 records) {
        if (records > 0) message_->setText(tr("%1 records").arg(QLocale().toString(records)));
    });
    connect(&process_, &DescribeProcess::described, this, [this](const QStringList& remarks) {
        remarks_ = remarks;
        QDialog::accept();
    });
    connect(&process_, &DescribeProcess::failed, this, [this](const QString& sentence) {
        tell(sentence);
        // A server may have refused the password or missed it.
        if (isOdbc(source_->text())) password_->setFocus();
    });
}

void DatabaseWindow::open(const QString& source) {
    source_->setText(source);
    readObjects();
}

void DatabaseWindow::repeat(const DatabaseRequest& request) {
    request_ = request;
    source_->setText(request.source.name);
    password_->setText(request.source.password);
    describe();
}

void DatabaseWindow::browse() {
    const std::string path = questions_.askFile();
    if (!path.empty()) open(QString::fromStdString(path));
}

void DatabaseWindow::readObjects() {
    forgetObjects();
    if (source_->text().trimmed().isEmpty()) return;
    // The process may fail at once, and its sentence must remain.
    message_->setText(tr("Reading the database…"));
    process_.list(source());
    updateChoices();
}

/// Removes the objects of the former database.
void DatabaseWindow::forgetObjects() {
    process_.cancel();
    objects_->clear();
    message_->clear();
    updateChoices();
}

void DatabaseWindow::showObjects(const QStringList& objects) {
    const QSignalBlocker quiet(objects_);
    for (const QString& object : objects) {
        auto* const item = new QListWidgetItem(object, objects_);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
    tell(objects.isEmpty() ? tr("The database has no tables.") : QString());
    objects_->setFocus(Qt::OtherFocusReason);
    if (!objects.isEmpty()) objects_->setCurrentRow(0);
}

void DatabaseWindow::checkAll(Qt::CheckState state) {
    {
        const QSignalBlocker quiet(objects_);
        for (int row = 0; row < objects_->count(); ++row)
            objects_->item(row)->setCheckState(state);
    }
    updateChoices();
}

void DatabaseWindow::tell(const QString& sentence) {
    message_->setText(sentence);
    updateChoices();
}

/// Enables the choices that are possible. Records can be chosen for one object only.
void DatabaseWindow::updateChoices() {
    const bool isIdle = !process_.isRunning();
    const auto checked = checkedObjects().size();
    const bool hasObjects = objects_->count() > 0;
    for (QWidget* const widget : std::initializer_list<QWidget*>{source_, browse_, read_, password_})
        widget->setEnabled(isIdle);
    read_->setDefault(!hasObjects);
    ok_->setDefault(hasObjects);
    passwordLabel_->setVisible(isOdbc(source_->text()));
    password_->setVisible(isOdbc(source_->text()));
    all_->setEnabled(isIdle && hasObjects);
    const bool isPart = checked > 0 && checked < objects_->count();
    all_->setCheckState(isPart ? Qt::PartiallyChecked : (checked > 0 ? Qt::Checked : Qt::Unchecked));
    objects_->setEnabled(isIdle && hasObjects);
    records_->setEnabled(isIdle && checked == 1);
    records_->setToolTip(checked == 1 ? QString() : tr("Records can be added to one object"));
    const bool needsValue = records() == Records::First || records() == Records::WithValue;
    value_->setEnabled(isIdle && needsValue);
    value_->setPlaceholderText(records() == Records::WithValue ? tr("column=value")
                                                               : (needsValue ? tr("number") : QString()));
    ok_->setEnabled(isIdle && checked > 0 && (!needsValue || !value_->text().trimmed().isEmpty()));
    bar_->setVisible(!isIdle);
}

DatabaseSource DatabaseWindow::source() const {
    const QString name = source_->text().trimmed();
    return {name, isOdbc(name) ? password_->text() : QString()};
}

QStringList DatabaseWindow::checkedObjects() const {
    QStringList checked;
    for (int row = 0; row < objects_->count(); ++row) {
        if (objects_->item(row)->checkState() == Qt::Checked) checked << objects_->item(row)->text();
    }
    return checked;
}

DatabaseWindow::Records DatabaseWindow::records() const {
    return records_->isEnabled() ? static_cast<Records>(records_->currentIndex()) : Records::None;
}

QString DatabaseWindow::recordsOption() const {
    switch (records()) {
        case Records::All:
            return QStringLiteral("all");
        case Records::First:
        case Records::WithValue:
            return value_->text().trimmed();
        default:
            return {};
    }
}

void DatabaseWindow::accept() {
    // The Return key in the line of the source.
    if (!ok_->isEnabled()) return objects_->count() == 0 ? readObjects() : void();
    request_ = {source(), checkedObjects(), recordsOption(), questions_.documentFor(source().name)};
    if (request_.objects.size() == objects_->count() && request_.records.isEmpty()) request_.objects.clear();
    describe();
}

void DatabaseWindow::describe() {
    if (request_.document.isEmpty()) return tell(tr("There is no folder for the structure document."));
    message_->setText(tr("Reading the database…"));
    process_.describe(request_);
    updateChoices();
}

void DatabaseWindow::reject() {
    if (!process_.isRunning()) return QDialog::reject();
    process_.cancel();
    tell(tr("The reading was cancelled."));
}

}  // namespace mergeloom
