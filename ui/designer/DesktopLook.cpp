#include "ui/designer/DesktopLook.h"

#include <QFontInfo>
#include <QPalette>
#include <QWidget>
#include <QtMath>

namespace mergeloom {

namespace {

LookColor colorOf(const QPalette& palette, QPalette::ColorRole role) {
    constexpr QRgb kWithoutAlpha = 0xFFFFFF;
    return LookColor{palette.color(QPalette::Active, role).rgb() & kWithoutAlpha};
}

LookColors colorsOf(const QPalette& palette) {
    return {.window = colorOf(palette, QPalette::Window),
            .windowText = colorOf(palette, QPalette::WindowText),
            .base = colorOf(palette, QPalette::Base),
            .text = colorOf(palette, QPalette::Text),
            .highlight = colorOf(palette, QPalette::Highlight),
            .highlightedText = colorOf(palette, QPalette::HighlightedText),
            .light = colorOf(palette, QPalette::Light),
            .shadow = colorOf(palette, QPalette::Dark)};
}

}  // namespace

HostLook lookOf(const QWidget& widget) {
    return {.dotsPerInch = qRound(widget.logicalDpiX() * widget.devicePixelRatioF()),
            .colors = colorsOf(widget.palette()),
            .fontFamily = QFontInfo(widget.font()).family().toStdString()};
}

}  // namespace mergeloom
