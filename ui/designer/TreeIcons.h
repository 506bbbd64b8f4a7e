#pragma once

#include "xml/TreeView.h"

#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QString>

namespace mergeloom {

/// Returns the key of a node's picture: that of its control or object, or that of a displayed or a bound
/// value.
[[nodiscard]] QString iconKeyOf(const TreeNode& node);

/// The pictures of the tree's nodes in the colours of a palette's text.
class TreeIcons {
  public:
    explicit TreeIcons(const QPalette& palette) : palette_(palette) {}

    void setPalette(const QPalette& palette);
    /// Returns the picture of a key ("Form", "Textbox", "BoundValue"), a neutral one for a key without a
    /// picture.
    [[nodiscard]] const QIcon& icon(const QString& key);

  private:
    [[nodiscard]] QIcon make(const QString& key) const;

    QPalette palette_;
    QHash<QString, QIcon> made_;
};

}  // namespace mergeloom
