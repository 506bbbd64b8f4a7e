#include "ui/designer/TreeIcons.h"
#include "xml/modNamedItems.h"

#include <gtest/gtest.h>

#include <QImage>
#include <optional>

namespace mergeloom {
namespace {

QPalette paletteWith(const QColor& text, const QColor& highlighted) {
    QPalette palette;
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

QImage imageOf(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(16, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Returns the only colour of all painted pixels; none if there are several or no pixel is painted.
std::optional<QRgb> colourOf(const QImage& image) {
    std::optional<QRgb> colour;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            // Nearly transparent pixels do not keep their colour exactly.
            if (pixel.alpha() < 200) continue;
            if (colour && *colour != pixel.rgb()) return {};
            colour = pixel.rgb();
        }
    }
    return colour;
}

TEST(TreeIcons, EachKeyHasAPictureOfItsOwn) {
    TreeIcons icons{QPalette()};
    QStringList keys = {QStringLiteral("Datasheet"), QStringLiteral("Form"), QString()};
    for (const ControlType type :
         {ControlType::Textbox, ControlType::Combobox, ControlType::Listbox, ControlType::OptionGroup,
          ControlType::BoundObjectFrame, ControlType::Checkbox, ControlType::ToggleButton,
          ControlType::OptionButton, ControlType::Subform, ControlType::TabControl,
          ControlType::CustomControl})
        keys << QString::fromStdString(ControlTypeName(type));
    QList<QImage> images;
    for (const QString& key : keys) {
        const QImage image = imageOf(icons.icon(key));
        EXPECT_EQ(image.size(), QSize(16, 16)) << key.toStdString();
        EXPECT_FALSE(images.contains(image)) << key.toStdString();
        images << image;
    }
    EXPECT_EQ(imageOf(icons.icon(QStringLiteral("Sparkline"))), imageOf(icons.icon(QString())));
    EXPECT_EQ(icons.icon(QString()).availableSizes().size(), 4);
}

TEST(TreeIcons, TakeTheColoursOfThePalette) {
    TreeIcons icons{paletteWith(Qt::black, Qt::white)};
    const QString key = QStringLiteral("Form");
    EXPECT_EQ(colourOf(imageOf(icons.icon(key))), QColor(Qt::black).rgb());
    EXPECT_EQ(colourOf(imageOf(icons.icon(key), QIcon::Selected)), QColor(Qt::white).rgb());
    icons.setPalette(paletteWith(Qt::yellow, Qt::black));
    EXPECT_EQ(colourOf(imageOf(icons.icon(key))), QColor(Qt::yellow).rgb());
}

}  // namespace
}  // namespace mergeloom
