#pragma once

#include "base/Messages.h"
#include "ui/designer/DescribeProcess.h"

#include <QObject>
#include <string>

class QWidget;

namespace mergeloom {

class DatabaseWindow;
class DesignerActions;
class FileDialog;
class StructureLoad;
class TreePane;

/// Opens databases: asks for one, has it described by a structure document in a folder of the user, and loads
/// the document. Belongs to the windows' thread.
class DatabaseFlow final : public QObject {
    Q_OBJECT

  public:
    /// The parts of the window that it works with, which must outlive it.
    struct Parts {
        QWidget& window;
        FileDialog& dialog;
        Messages& messages;
        StructureLoad& structures;
        DesignerActions& actions;
        TreePane& tree;
    };

    explicit DatabaseFlow(const Parts& parts);

    /// Loads a structure document, or shows the window for a file that is a database. Returns at once.
    void openFile(const std::string& path);

  private:
    void open(const std::string& path);
    /// Reads the database of the loaded document anew, with the choices that the user made before.
    void readAgain();
    [[nodiscard]] std::string askFile() const;
    void show(DatabaseWindow& window);

    Parts parts_;
    DatabaseRequest last_;
};

}  // namespace mergeloom
