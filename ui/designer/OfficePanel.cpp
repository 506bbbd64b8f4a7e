#include "ui/designer/OfficePanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace mergeloom {

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

void OfficePanel::showProgress(const QString& sentence, bool canBeGivenUp) {
    sentence_->setText(sentence);
    progress_->setAccessibleName(sentence);
    progress_->show();
    cmdCancel_->setVisible(canBeGivenUp);
    cmdStart_->hide();
}

void OfficePanel::showStopped(const QString& sentence) {
    sentence_->setText(sentence);
    progress_->hide();
    cmdCancel_->hide();
    cmdStart_->show();
}

}  // namespace mergeloom
