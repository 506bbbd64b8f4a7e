#pragma once

#include <QStringList>
#include <QWidget>

class QVBoxLayout;

namespace mergeloom {

/// A page that replaces the tree while no structure document is loaded. It explains the program in two lines
/// and offers the recent documents and the sample.
class StartPage final : public QWidget {
    Q_OBJECT

  public:
    explicit StartPage(QWidget* parent);

    /// Offers the newest of the recent documents, and the sample unless its path is empty.
    void offer(const QStringList& recent, const QString& sample);

  Q_SIGNALS:
    void chosen(const QString& path);

  private:
    void addOffer(const QString& text, const QString& path);

    QWidget* offers_ = nullptr;
    QVBoxLayout* rows_;
};

/// Returns the path of the sample that comes with the program; empty when it is not there.
QString samplePath();

}  // namespace mergeloom
