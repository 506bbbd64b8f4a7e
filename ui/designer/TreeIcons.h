#pragma once

#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QString>

namespace mergeloom {

/// The pictures of the tree's nodes in the colours of a palette's text.
class TreeIcons {
  public:
    explicit TreeIcons(const QPalette& palette) : palette_(palette) {}

    void setPalette(const QPalette& palette);
    /// Returns the picture of a key ("Form", "Textbox"), a neutral one for a key without a picture.
    [[nodiscard]] const QIcon& icon(const QString& key);

  private:
    [[nodiscard]] QIcon make(const QString& key) const;

    QPalette palette_;
    QHash<QString, QIcon> made_;
};

}  // namespace mergeloom
