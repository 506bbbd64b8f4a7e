#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "ui/designer/LoadedStructure.h"

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace mergeloom {

class FileDialog;

/// The result of loading a structure document. Its messages are kept, since only the window can show them.
struct StructureLoadResult {
    std::shared_ptr<LoadedStructure> structure;  ///< none when the document was not read
    std::vector<Message> messages;
    std::vector<ErrorReport> errors;  ///< of several equal ones the first, with their number as its comment
};

/// Loads a structure document and builds its tree with icons; in Word mode the special nodes come before it.
/// May run in any thread. When isCancelled becomes true, the result may be left unfinished.
StructureLoadResult loadStructure(const std::string& path, const std::function<bool()>& isCancelled);

/// Loads structure documents and keeps their folders. All members belong to the windows' thread; the work is
/// done in another one.
class StructureLoad : public QObject {
    Q_OBJECT
  public:
    StructureLoad(FileDialog& dialog, Messages& messages, ErrorHandler& errors, QObject* parent = nullptr);
    /// Waits for a running load.
    ~StructureLoad() override;

    /// Handles the load button: asks for a file and loads it. From the first load by the button on, the
    /// templates folder is taken from each document that is loaded later.
    void cmdLoadXML_Click();
    /// Asks for a file and loads it.
    void LoadXMLFile();
    /// Loads a file; a running load is cancelled.
    void load(const std::string& path);
    /// Cancels the running load, if there is one. The tree stays cleared.
    void cancel();
    [[nodiscard]] bool isLoading() const { return current_ != 0; }

    /// Sets the folder in which the dialog begins: that of the document that was loaded last, or empty.
    void setLastFolder(const std::string& folder) { lastFolder_ = folder; }
    [[nodiscard]] const std::string& documentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& templatesFolder() const { return templatesFolder_; }
    /// Sets the templates folder of the command line.
    void setTemplatesFolder(const std::string& folder) { templatesFolder_ = folder; }

  Q_SIGNALS:
    /// Emitted when a load begins and the tree is to be cleared.
    void started();
    /// Emitted with the document to show.
    void loaded(const std::shared_ptr<LoadedStructure>& structure);
    /// Emitted when a load is over: shown, failed or cancelled. Its messages come after this.
    void ended();

  private:
    enum class Origin { Elsewhere, Button };
    /// Loads are numbered from 1.
    using LoadNumber = int;

    void askAndLoad(Origin origin);
    void begin(const std::string& path, Origin origin);
    void finish(LoadNumber number, const StructureLoadResult& result);
    void takeFolders(const StructureFolders& folders);
    void showMessages(const StructureLoadResult& result);

    FileDialog& dialog_;
    Messages& messages_;
    ErrorHandler& errors_;
    std::string lastFolder_;
    std::string documentsFolder_;
    std::string templatesFolder_;
    Origin origin_ = Origin::Elsewhere;
    bool loadedByButton_ = false;
    LoadNumber last_ = 0;
    LoadNumber current_ = 0;  // 0 while nothing is loading
    // A cancelled load runs to the end of its step; its result is ignored.
    std::map<LoadNumber, std::jthread> threads_;
};

}  // namespace mergeloom
