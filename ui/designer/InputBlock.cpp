#include "ui/designer/InputBlock.h"

#include <QApplication>
#include <QEvent>

namespace mergeloom {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputBlock::InputBlock() {
    QApplication::instance()->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* /*receiver*/, QEvent* event) {
    return isInput(event->type()) && QApplication::activeModalWidget() == nullptr;
}

}  // namespace mergeloom
