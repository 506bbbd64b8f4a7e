#pragma once

#include <QObject>
#include <QString>
#include <vector>

class QAction;
class QKeySequence;
class QMenu;
class QMenuBar;

namespace mergeloom {

/// The commands of the window, in a menu bar above the tree. No menu has the name of a menu of the office,
/// whose menu bar is beside it.
class DesignerActions final : public QObject {
    Q_OBJECT

  public:
    /// Decides whether merge fields can be converted, which is so in Word alone.
    enum class FieldConversion { Offered, Missing };

    DesignerActions(QMenuBar& bar, FieldConversion conversion);

    /// Enables the commands that need a document.
    void setDocumentAvailable(bool isAvailable);
    /// Enables the commands of a preview while one is shown.
    void setPreviewing(bool isPreviewing);
    /// Enables the command that reads a database anew.
    void setDatabaseAvailable(bool isAvailable);
    /// Returns true if the user wants to see the places in the document.
    [[nodiscard]] bool showsPlaces() const;
    /// Return the menus for the files that were used last, which are empty at first.
    [[nodiscard]] QMenu& recentTemplates() { return *recentTemplates_; }
    [[nodiscard]] QMenu& recentStructures() { return *recentStructures_; }

  Q_SIGNALS:
    void newTemplate();
    void open();
    void save();
    void saveAs();
    void closeWindow();
    void loadStructure();
    void openDatabase();
    void readDatabaseAgain();
    void insertNode();
    void convertFields();
    /// Emitted with the state that the user wants.
    void preview(bool isShown);
    void nextRecord();
    void previousRecord();
    void placesToggled(bool isOn);
    void helpContents();
    void helpIndex();
    void helpSearch();
    void about();

  private:
    using Signal = void (DesignerActions::*)();

    QAction* add(QMenu& menu, const QString& text, const QKeySequence& keys, Signal signal);
    void addForDocument(QMenu& menu, const QString& text, const QKeySequence& keys, Signal signal);
    void addTemplateMenu(QMenuBar& bar);
    void addWorkMenus(QMenuBar& bar, FieldConversion conversion);
    void addPreviewMenu(QMenuBar& bar);
    void addProgramMenu(QMenuBar& bar);

    std::vector<QAction*> forDocument_;
    std::vector<QAction*> forPreview_;
    QAction* preview_ = nullptr;
    QAction* readAgain_ = nullptr;
    QAction* showPlaces_ = nullptr;
    QMenu* recentTemplates_ = nullptr;
    QMenu* recentStructures_ = nullptr;
};

}  // namespace mergeloom
