// Headers of Qt that most sources of the designer include, parsed once for all of them.
#pragma once

#include "standard.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>
