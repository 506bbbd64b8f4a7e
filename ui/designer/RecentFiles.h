#pragma once

#include <QMenu>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <string>

namespace mergeloom {

/// The files of a kind that the user worked with last, the newest first. They are kept in the user's
/// settings, which all windows share.
class RecentFiles final : public QObject {
    Q_OBJECT

  public:
    /// The settings must outlive it.
    RecentFiles(QSettings& settings, const char* kind);

    /// Puts a file at the beginning of the list.
    void add(const std::string& path);
    /// Returns those that exist.
    [[nodiscard]] QStringList paths() const;
    /// Returns the folder of the newest file that exists; empty without one.
    [[nodiscard]] std::string folder() const;

  Q_SIGNALS:
    void changed();

  private:
    [[nodiscard]] QStringList all() const;

    QSettings& settings_;
    QString key_;
};

/// Lists recent files in a menu, which is disabled while there are none.
class RecentMenu final : public QObject {
    Q_OBJECT

  public:
    /// The menu and the files must outlive it.
    RecentMenu(QMenu& menu, RecentFiles& files, QObject* parent);

  Q_SIGNALS:
    void chosen(const QString& path);

  private:
    void fill();

    QMenu& menu_;
    RecentFiles& files_;
};

}  // namespace mergeloom
