#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/remote/WriterDocument.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// Word's application over LibreOffice. The document that was opened last is the active one.
class WriterApplication final : public word::Application,
                                public std::enable_shared_from_this<WriterApplication> {
  public:
    /// Documents that are opened keep their originals when a grafting office is given.
    WriterApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                      GraftingOfficePtr grafting)
        : session_(std::move(session)), files_(files), grafting_(std::move(grafting)) {}
    ~WriterApplication() override;

    std::string Name() override { return "Microsoft Word"; }
    /// Writer has the formats and calls of Word 2016 and later. canSaveAs decides on its own what can be
    /// written.
    std::string Version() override { return "16.0"; }
    word::DocumentsPtr Documents() override;
    word::SelectionPtr Selection() override;
    word::UndoRecordPtr UndoRecord() override;
    bool canSaveAs(word::WdSaveFormat format) override;
    void Quit(word::WdSaveOptions saveChanges) override;

    [[nodiscard]] const std::vector<std::shared_ptr<WriterDocument>>& documents() const { return documents_; }
    word::DocumentPtr open(const std::string& fileName);
    word::DocumentPtr add(const std::string& templatePath);
    void remove(const WriterDocument& document);

  private:
    /// Adds a document to the list. The source file is the one it was read from, empty for a new document.
    word::DocumentPtr list(const DocumentReference& document, const std::string& sourceFile,
                           const std::string& fullName, bool wasOpened);
    [[nodiscard]] WriterDocument& activeDocument() const;

    std::shared_ptr<LibreOfficeSession> session_;
    FileStore& files_;
    GraftingOfficePtr grafting_;
    std::vector<std::shared_ptr<WriterDocument>> documents_;
    int added_ = 0;
};

}  // namespace mergeloom::libreoffice
