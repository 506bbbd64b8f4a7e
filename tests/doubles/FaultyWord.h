#pragma once

#include "base/AutomationError.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <utility>

namespace mergeloom {

/// Fails the n-th of the calls that it is asked about, counted from 1.
class CallCounter {
  public:
    explicit CallCounter(int failingCall) : callsLeft_(failingCall) {}

    void count() {
        if (--callsLeft_ == 0) throw AutomationError(kCommandFailed, "The command failed.");
    }
    [[nodiscard]] bool hasFailed() const { return callsLeft_ <= 0; }

  private:
    int callsLeft_;
};

/// An office over another one, in which the n-th call for the selection fails.
class FaultyApplication final : public word::Application {
  public:
    FaultyApplication(word::ApplicationPtr office, CallCounter& counter)
        : office_(std::move(office)), counter_(counter) {}

    std::string Name() override { return office_->Name(); }
    std::string Version() override { return office_->Version(); }
    word::DocumentsPtr Documents() override { return office_->Documents(); }
    word::SelectionPtr Selection() override {
        counter_.count();
        return office_->Selection();
    }
    word::UndoRecordPtr UndoRecord() override { return office_->UndoRecord(); }
    bool canSaveAs(word::WdSaveFormat format) override { return office_->canSaveAs(format); }
    void Quit(word::WdSaveOptions saveChanges) override { office_->Quit(saveChanges); }

  private:
    word::ApplicationPtr office_;
    CallCounter& counter_;
};

/// A document over another one, in which the n-th call fails. Calls for its bookmarks count, and those of its
/// application for the selection.
class FaultyDocument final : public word::Document {
  public:
    FaultyDocument(word::DocumentPtr document, CallCounter& counter)
        : document_(std::move(document)), counter_(counter) {}

    word::ApplicationPtr Application() override {
        return std::make_shared<FaultyApplication>(document_->Application(), counter_);
    }
    word::BookmarksPtr Bookmarks() override {
        counter_.count();
        return document_->Bookmarks();
    }
    word::WindowPtr ActiveWindow() override { return document_->ActiveWindow(); }
    word::FieldsPtr Fields() override { return document_->Fields(); }
    word::MailMergePtr MailMerge() override { return document_->MailMerge(); }
    word::TablesPtr Tables() override { return document_->Tables(); }
    std::string Name() override { return document_->Name(); }
    std::string FullName() override { return document_->FullName(); }
    bool Saved() override { return document_->Saved(); }
    void SetSaved(bool saved) override { document_->SetSaved(saved); }
    void Save() override { document_->Save(); }
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override {
        document_->SaveAs(fileName, format);
    }
    void Close(word::WdSaveOptions saveChanges) override { document_->Close(saveChanges); }
    bool Undo(int times) override { return document_->Undo(times); }
    void giveUpUndo() override { document_->giveUpUndo(); }

  private:
    word::DocumentPtr document_;
    CallCounter& counter_;
};

}  // namespace mergeloom
