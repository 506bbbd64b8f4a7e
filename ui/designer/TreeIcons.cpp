#include "ui/designer/TreeIcons.h"

#include "xml/modNamedItems.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>

// The macro declares a function of the resource, which has no namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(TreeIcons);
}

namespace mergeloom {

namespace {

/// The sizes in which the pictures are built in, in pixels.
constexpr int kSizes[] = {16, 24, 32, 48};
constexpr int kMinSize = kSizes[0];

QString fileOf(const QString& key, int size) {
    return QStringLiteral(":/tree/%1-%2.png").arg(key).arg(size);
}

QPixmap coloured(const QString& file, const QColor& colour) {
    QPixmap picture(file);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), colour);
    return picture;
}

}  // namespace

QString iconKeyOf(const TreeNode& node) {
    if (dropKindOf(node.Tag()) == DropKind::Value) return QStringLiteral("Value");
    if (dropKindOf(node.Tag()) == DropKind::BoundValue) return QStringLiteral("BoundValue");
    return QString::fromStdString(node.Image());
}

void TreeIcons::setPalette(const QPalette& palette) {
    palette_ = palette;
    made_.clear();
}

const QIcon& TreeIcons::icon(const QString& key) {
    const auto known = made_.constFind(key);
    return known != made_.constEnd() ? *known : *made_.insert(key, make(key));
}

QIcon TreeIcons::make(const QString& key) const {
    loadPictures();
    const bool isDrawn = !key.isEmpty() && QFile::exists(fileOf(key, kMinSize));
    const QString picture = isDrawn ? key : QStringLiteral("Neutral");
    QIcon icon;
    for (const int size : kSizes) {
        const QString file = fileOf(picture, size);
        icon.addPixmap(coloured(file, palette_.color(QPalette::Text)), QIcon::Normal);
        icon.addPixmap(coloured(file, palette_.color(QPalette::HighlightedText)), QIcon::Selected);
    }
    return icon;
}

}  // namespace mergeloom
