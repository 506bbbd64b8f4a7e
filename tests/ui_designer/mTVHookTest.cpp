#include "ui/designer/mTVHook.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QTreeView>
#include <memory>

namespace mergeloom {
namespace {

void loseFocus(QWidget& widget) {
    QFocusEvent event(QEvent::FocusOut);
    QApplication::sendEvent(&widget, &event);
}

TEST(TreeHook, SeesTheFocusGoWhileHooked) {
    QTreeView tree;
    QTreeView other;
    loseFocus(tree);
    EXPECT_FALSE(gTreeLostFocus) << "not hooked yet";

    HookTreeView(tree);
    EXPECT_FALSE(gTreeLostFocus);
    HookTreeView(other);
    loseFocus(other);
    EXPECT_FALSE(gTreeLostFocus) << "a second hook does nothing";
    loseFocus(tree);
    EXPECT_TRUE(gTreeLostFocus);

    UnhookTreeView(tree);
    EXPECT_FALSE(gTreeLostFocus);
    loseFocus(tree);
    EXPECT_FALSE(gTreeLostFocus);

    gTreeLostFocus = true;
    UnhookTreeView(tree);
    EXPECT_FALSE(gTreeLostFocus) << "without a hook, too";
}

TEST(TreeHook, ATreeThatIsGoneIsNotHooked) {
    auto gone = std::make_unique<QTreeView>();
    HookTreeView(*gone);
    gone.reset();
    QTreeView tree;
    HookTreeView(tree);
    loseFocus(tree);
    EXPECT_TRUE(gTreeLostFocus);
    UnhookTreeView(tree);
}

}  // namespace
}  // namespace mergeloom
