#pragma once

#include "ui/help/HelpFile.h"

#include <QTextBrowser>
#include <functional>
#include <memory>

namespace mergeloom {

/// Shows the topics of a help file, with their pictures no wider than itself, and follows the links between
/// them.
class HelpBrowser final : public QTextBrowser {
    Q_OBJECT

  public:
    /// Problems are sentences about a topic that does not exist or cannot be read.
    HelpBrowser(std::shared_ptr<HelpFile> file, std::function<void(const QString&)> showProblem,
                QWidget* parent);

    /// Shows a topic, by its path in the help file; "#" and a place may follow. For a topic that does not
    /// exist it shows a problem and stays at the current one.
    void showTopic(const QString& topic);
    /// Returns the path of the topic that is shown, without a place.
    [[nodiscard]] QString topic() const { return topicOf(source()); }
    /// Returns the topic of an address that the browser shows or emits.
    static QString topicOf(const QUrl& address) { return address.path().mid(1); }
    /// Zooms by steps, larger or, below 0, smaller than the font of the desktop.
    void zoomBy(int steps);
    void resetZoom();

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] int roomForPictures() const;
    QVariant fittingPicture(const QByteArray& bytes);
    void follow(const QUrl& link);

    std::shared_ptr<HelpFile> file_;
    std::function<void(const QString&)> showProblem_;
    int zoom_ = 0;
    int widestPicture_ = 0;  ///< of the topic, before it was scaled
    int pictureRoom_ = 0;    ///< for which the pictures of the topic were scaled
};

}  // namespace mergeloom
