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
      cmdStart_(new QPushButton(tr("&Start again"), this)) {
    setAutoFillBackground(true);
    sentence_->setWordWrap(true);
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    progress_->setAccessibleName(tr("The office is starting"));
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
    sentence_->setText(tr("The office is starting…"));
    progress_->show();
    cmdCancel_->show();
    cmdStart_->hide();
}

void OfficePanel::showStopped(const QString& sentence) {
    sentence_->setText(sentence);
    progress_->hide();
    cmdCancel_->hide();
    cmdStart_->show();
}

}  // namespace mergeloom
