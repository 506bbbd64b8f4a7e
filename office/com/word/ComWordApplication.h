#pragma once

#include "office/com/automation/OwnDocuments.h"
#include "office/com/word/ComDocument.h"
#include "office/com/word/ComWordModel.h"
#include "office/model/word/Application.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::com {

/// A Word that was started here. Its documents are those that are opened through it: others, such as one that
/// the user opens meanwhile, are neither counted nor closed.
class ComWordApplication final : public word::Application,
                                 public std::enable_shared_from_this<ComWordApplication> {
  public:
    explicit ComWordApplication(ComWordModelPtr model) : model_(std::move(model)) {}
    /// Ends Word, unsaved, if Quit was not called.
    ~ComWordApplication() override;

    std::string Name() override { return app().get("Name").text(); }
    std::string Version() override { return app().get("Version").text(); }
    word::DocumentsPtr Documents() override;
    word::SelectionPtr Selection() override;
    word::UndoRecordPtr UndoRecord() override;
    bool canSaveAs(word::WdSaveFormat format) override;
    void Quit(word::WdSaveOptions saveChanges) override;

    /// Keeps Word from showing dialogs and from running the macros of documents.
    void setUp();
    [[nodiscard]] const std::vector<std::shared_ptr<ComDocument>>& documents() const {
        return documents_.all();
    }
    word::DocumentPtr add(const std::string& templatePath);
    word::DocumentPtr open(const std::string& fileName);
    void remove(const ComDocument& document);

  private:
    [[nodiscard]] const AutomationObject& app() const { return model_->application(); }
    word::DocumentPtr list(const AutomationObject& document);
    /// Ends Word, or leaves it to the user if it has documents of theirs.
    void end();

    ComWordModelPtr model_;
    OwnDocuments<ComDocument> documents_;
    word::SelectionPtr selection_;  ///< of the active document, since its first use
    bool hasQuit_ = false;
};

}  // namespace mergeloom::com
