#include "ui/designer/RecentFiles.h"

#include "base/Paths.h"

#include <QAction>
#include <QFileInfo>
#include <algorithm>

namespace mergeloom {

namespace {

constexpr qsizetype kMaxFiles = 8;

/// Returns the entry of a menu for a file: a digit to press, its name and its folder.
QString entryOf(qsizetype number, const QString& path) {
    const QFileInfo file(path);
    QString text = QStringLiteral("%1 (%2)").arg(file.fileName(), file.path());
    text.replace(u'&', QStringLiteral("&&"));
    return QStringLiteral("&%1 %2").arg(number).arg(text);
}

}  // namespace

RecentFiles::RecentFiles(QSettings& settings, const char* kind)
    : settings_(settings), key_(QStringLiteral("recent/") + QLatin1String(kind)) {}

void RecentFiles::add(const std::string& path) {
    // Another window may have added some.
    settings_.sync();
    QStringList paths = all();
    const QString added = QString::fromStdString(path);
    paths.removeAll(added);
    paths.prepend(added);
    settings_.setValue(key_, paths.mid(0, kMaxFiles));
    Q_EMIT changed();
}

QStringList RecentFiles::all() const {
    return settings_.value(key_).toStringList();
}

QStringList RecentFiles::paths() const {
    QStringList existing = all();
    existing.removeIf([](const QString& path) { return !fileExists(path.toStdString()); });
    return existing;
}

std::string RecentFiles::folder() const {
    return parentFolder(paths().value(0).toStdString());
}

RecentMenu::RecentMenu(QMenu& menu, RecentFiles& files, QObject* parent)
    : QObject(parent), menu_(menu), files_(files) {
    connect(&menu_, &QMenu::aboutToShow, this, &RecentMenu::fill);
    connect(&files_, &RecentFiles::changed, this, &RecentMenu::fill);
    fill();
}

void RecentMenu::fill() {
    menu_.clear();
    const QStringList paths = files_.paths();
    for (const QString& path : paths) {
        const QAction* const entry = menu_.addAction(entryOf(menu_.actions().size() + 1, path));
        connect(entry, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    menu_.setEnabled(!paths.isEmpty());
}

}  // namespace mergeloom
