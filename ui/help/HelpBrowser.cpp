#include "ui/help/HelpBrowser.h"

#include "base/AutomationError.h"
#include "ui/help/HelpSitemap.h"

#include <QImage>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kMinZoom = -6;
constexpr int kMaxZoom = 20;

/// Returns the address of a topic, against which the links in it are resolved.
QUrl addressOf(const QString& topic) {
    QUrl address;
    address.setScheme(QStringLiteral("chm"));
    address.setPath(u'/' + topic.section(u'#', 0, 0));
    if (topic.contains(u'#')) address.setFragment(topic.section(u'#', 1));
    return address;
}

}  // namespace

HelpBrowser::HelpBrowser(std::shared_ptr<HelpFile> file, std::function<void(const QString&)> showProblem,
                         QWidget* parent)
    : QTextBrowser(parent), file_(std::move(file)), showProblem_(std::move(showProblem)) {
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
}

void HelpBrowser::showTopic(const QString& topic) {
    follow(addressOf(normalizedTopic(topic)));
}

void HelpBrowser::follow(const QUrl& link) {
    const QUrl address = source().resolved(link);
    try {
        if (address.scheme() == QLatin1String("chm") && file_->topicHtml(address.path())) {
            widestPicture_ = 0;
            setSource(address);
        } else {
            showProblem_(tr("The help file '%1' has no topic '%2'.")
                             .arg(QString::fromStdString(file_->path()), link.toString()));
        }
    } catch (const AutomationError& error) {
        showProblem_(QString::fromStdString(error.description()));
    }
}

void HelpBrowser::zoomBy(int steps) {
    const int wanted = std::clamp(zoom_ + steps, kMinZoom, kMaxZoom);
    zoomIn(wanted - zoom_);
    zoom_ = wanted;
}

void HelpBrowser::resetZoom() {
    zoomBy(-zoom_);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    const QUrl address = source().resolved(name);
    try {
        if (type == QTextDocument::HtmlResource) return file_->topicHtml(address.path()).value_or(QString());
        const QByteArray bytes = file_->read(address.path()).value_or(QByteArray());
        return type == QTextDocument::ImageResource ? fittingPicture(bytes) : QVariant(bytes);
    } catch (const AutomationError& error) {
        showProblem_(QString::fromStdString(error.description()));
        return {};
    }
}

/// Returns the width for pictures, of which the margins of the page take no part.
int HelpBrowser::roomForPictures() const {
    return std::max(1, viewport()->width() - static_cast<int>(2 * document()->documentMargin()));
}

QVariant HelpBrowser::fittingPicture(const QByteArray& bytes) {
    const QImage picture = QImage::fromData(bytes);
    if (picture.isNull()) return bytes;
    pictureRoom_ = roomForPictures();
    widestPicture_ = std::max(widestPicture_, picture.width());
    if (picture.width() <= pictureRoom_) return picture;
    return picture.scaledToWidth(pictureRoom_, Qt::SmoothTransformation);
}

/// Loads the pictures anew when the width for them changes.
void HelpBrowser::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    const int room = roomForPictures();
    if (std::min(room, widestPicture_) == std::min(pictureRoom_, widestPicture_)) return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

}  // namespace mergeloom
