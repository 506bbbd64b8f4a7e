#include "ui/designer/mTVHook.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace mergeloom {

bool gTreeLostFocus = false;

namespace {

class FocusWatch : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) gTreeLostFocus = true;
        return false;
    }
};

FocusWatch& focusWatch() {
    static FocusWatch watch;
    return watch;
}

QPointer<QWidget> hookedTree;

}  // namespace

void HookTreeView(QWidget& tree) {
    if (hookedTree != nullptr) return;
    hookedTree = &tree;
    tree.installEventFilter(&focusWatch());
}

void UnhookTreeView(QWidget& tree) {
    if (hookedTree == &tree) {
        tree.removeEventFilter(&focusWatch());
        hookedTree = nullptr;
    }
    gTreeLostFocus = false;
}

}  // namespace mergeloom
