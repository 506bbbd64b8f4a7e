#include "doubles/ChangedVariable.h"
#include "doubles/TemporaryFolder.h"
#include "ui/designer/DatabaseWindow.h"
#include "ui/designer/PlacesPane.h"
#include "ui/designer/frmMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <map>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

using testing::IsEmpty;

/// The texts of one window or menu by their underlined letters.
class Letters {
  public:
    void add(const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (!keys.isEmpty()) texts_[keys.toString().toStdString()].push_back(text.toStdString());
    }
    void addEntries(const QList<QAction*>& entries) {
        for (const QAction* const entry : entries)
            add(entry->text());
    }
    /// Returns the texts of letters that more than one of them has.
    [[nodiscard]] std::vector<std::string> shared() const {
        std::vector<std::string> found;
        for (const auto& [letter, texts] : texts_)
            if (texts.size() > 1) found.insert(found.end(), texts.begin(), texts.end());
        return found;
    }
    [[nodiscard]] std::size_t count() const { return texts_.size(); }

  private:
    std::map<std::string, std::vector<std::string>> texts_;
};

/// Returns the letters that Alt brings to a part of the window: the menus, buttons and labels.
Letters lettersOf(const QWidget& window) {
    Letters letters;
    for (const QMenuBar* const bar : window.findChildren<QMenuBar*>())
        letters.addEntries(bar->actions());
    for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>())
        letters.add(button->text());
    for (const QLabel* const label : window.findChildren<QLabel*>())
        if (label->buddy() != nullptr) letters.add(label->text());
    return letters;
}

/// Expects that no letter leads to two entries of a menu, or to an entry and to the menu itself.
void expectDistinctEntries(const QWidget& window) {
    for (const QMenu* const menu : window.findChildren<QMenu*>()) {
        Letters letters;
        letters.add(menu->title());
        letters.addEntries(menu->actions());
        EXPECT_THAT(letters.shared(), IsEmpty()) << menu->title().toStdString();
    }
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->contextMenuPolicy() != Qt::ActionsContextMenu) continue;
        Letters letters;
        letters.addEntries(widget->actions());
        EXPECT_THAT(letters.shared(), IsEmpty()) << widget->objectName().toStdString();
    }
}

TEST(Mnemonics, OfTheWindowAndItsMenusAreDistinct) {
    const TemporaryFolder folder;
    const ChangedVariable configuration("XDG_CONFIG_HOME", folder.path());
    for (const DocumentKind kind : {DocumentKind::Word, DocumentKind::Excel}) {
        const frmMain window(kind);
        // The list of places has a letter while there are places.
        window.findChild<PlacesPane*>()->show({{.name = QStringLiteral("Customer")}});
        const Letters letters = lettersOf(window);
        EXPECT_GE(letters.count(), 12U);
        EXPECT_THAT(letters.shared(), IsEmpty());
        expectDistinctEntries(window);
    }
}

TEST(Mnemonics, OfTheWindowForDatabasesAreDistinct) {
    const DatabaseWindow window(nullptr,
                                {[] { return std::string(); }, [](const QString&) { return QString(); }}, {});
    const Letters letters = lettersOf(window);
    EXPECT_GE(letters.count(), 6U);
    EXPECT_THAT(letters.shared(), IsEmpty());
}

}  // namespace
}  // namespace mergeloom
