#pragma once

#include "base/FileStore.h"
#include "office/embedded/word/EmbeddedDocument.h"
#include "office/model/word/Application.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Word's part played by the engine of our own: documents are Office Open XML packages that it reads, edits
/// and writes itself. The document opened or added last is the active one.
class EmbeddedApplication final : public word::Application,
                                  public std::enable_shared_from_this<EmbeddedApplication> {
  public:
    /// The file store has to outlive the application and its documents.
    explicit EmbeddedApplication(FileStore& files) : files_(files) {}

    std::string Name() override { return "Microsoft Word"; }
    /// The engine answers for the formats and calls of Word 2016 and later.
    std::string Version() override { return "16.0"; }

    word::DocumentsPtr Documents() override;
    word::SelectionPtr Selection() override;
    word::UndoRecordPtr UndoRecord() override;
    bool canSaveAs(word::WdSaveFormat format) override;
    void Quit(word::WdSaveOptions saveChanges) override;

    word::DocumentPtr open(const std::string& fileName);
    word::DocumentPtr add(const std::string& templatePath);
    [[nodiscard]] const std::vector<std::shared_ptr<EmbeddedDocument>>& documents() const {
        return documents_;
    }
    void remove(const EmbeddedDocument& document);

  private:
    word::DocumentPtr list(std::shared_ptr<WordContent> content, const std::string& fullName, bool wasOpened);
    [[nodiscard]] const std::shared_ptr<WordContent>& activeContent() const;

    FileStore& files_;
    std::vector<std::shared_ptr<EmbeddedDocument>> documents_;
    int added_ = 0;
};

}  // namespace mergeloom::embedded
