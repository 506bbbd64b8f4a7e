#include "ui/designer/StartPage.h"

#include "base/Paths.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

namespace mergeloom {

namespace {

constexpr qsizetype kMaxRecent = 4;

/// The places of the sample, from the program's folder: of an installed program and of a build.
constexpr const char* kSamples[] = {"../../share/doc/mergeloom/examples/orders.xml",
                                    "../../samples/orders.xml"};

}  // namespace

QString samplePath() {
    const std::string folder = parentFolder(programPath());
    for (const char* const place : kSamples) {
        const std::string path = fullPath(joinPath(folder, place));
        if (fileExists(path)) return QString::fromStdString(path);
    }
    return {};
}

StartPage::StartPage(QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout(this)) {
    auto* const sentence =
        new QLabel(tr("Mergeloom puts named places for the fields of a database into a template.\n"
                      "Load the description of a database, then drag its fields into the "
                      "document."),
                   this);
    sentence->setWordWrap(true);
    sentence->setTextFormat(Qt::PlainText);
    rows_->setContentsMargins({});
    rows_->addWidget(sentence);
    rows_->addStretch();
}

void StartPage::offer(const QStringList& recent, const QString& sample) {
    delete offers_;
    offers_ = new QWidget(this);
    auto* const column = new QVBoxLayout(offers_);
    column->setContentsMargins({});
    rows_->insertWidget(1, offers_);
    for (const QString& path : recent.mid(0, kMaxRecent))
        addOffer(QFileInfo(path).fileName(), path);
    if (!sample.isEmpty() && !recent.contains(sample)) addOffer(tr("The sample: orders of a shop"), sample);
}

void StartPage::addOffer(const QString& text, const QString& path) {
    auto* const button = new QPushButton(QString(text).replace(u'&', QStringLiteral("&&")), offers_);
    button->setToolTip(path);
    // A long name must not make the pane wide.
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, this, [this, path] { Q_EMIT chosen(path); });
    offers_->layout()->addWidget(button);
}

}  // namespace mergeloom
