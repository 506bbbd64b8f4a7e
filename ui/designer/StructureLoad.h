#pragma once

#include "ui/designer/LoadedStructure.h"

#include "base/ErrorHandler.h"
#include "base/Messages.h"

#include <memory>
#include <string>

#include <QObject>

namespace mergeloom {

class FileDialog;
class StructureLoadThread;
struct StructureLoadResult;

/// The loading of structure documents and the folders that they bring. All members belong to the GUI's thread;
/// the work is done in another.
class StructureLoad : public QObject {
    Q_OBJECT
  public:
    StructureLoad(FileDialog& dialog, Messages& messages, ErrorHandler& errors, QObject* parent = nullptr);
    ~StructureLoad() override;

    /// What the load button does: asks for a file and loads it. After each load by the button the templates
    /// folder is taken from the documents that are loaded later.
    void cmdLoadXML_Click();
    /// Asks for a file and loads it.
    void LoadXMLFile();
    /// Loads a file; a load that is still going on is cancelled.
    void load(const std::string& path);
    /// Gives up the load that is going on, if one is. The tree stays cleared.
    void cancel();
    [[nodiscard]] bool isLoading() const;

    [[nodiscard]] const std::string& documentsFolder() const { return documentsFolder_; }
    [[nodiscard]] const std::string& templatesFolder() const { return templatesFolder_; }
    /// What the command line names as the templates folder.
    void setTemplatesFolder(const std::string& folder) { templatesFolder_ = folder; }

  Q_SIGNALS:
    /// A load begins: the tree is to be cleared.
    void started();
    /// The document to show. Messages about it come after this.
    void loaded(std::shared_ptr<LoadedStructure> structure);
    /// A load is over: shown, failed (the user was told why) or cancelled.
    void ended();

  private:
    enum class Origin { Elsewhere, Button };

    void askAndLoad(Origin origin);
    void begin(const std::string& path, Origin origin);
    void finish(const StructureLoadResult& result);
    void takeFolders(const LoadedStructure& structure);

    FileDialog& dialog_;
    Messages& messages_;
    ErrorHandler& errors_;
    std::unique_ptr<StructureLoadThread> thread_;
    std::string documentsFolder_;
    std::string templatesFolder_;
    Origin origin_ = Origin::Elsewhere;
    bool loadedByButton_ = false;
};

}  // namespace mergeloom
