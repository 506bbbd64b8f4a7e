#pragma once

#include "app/Conversion.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

class ConvertingDocument;

/// An office that implements Word's object model by another one that supports only Open Packaging: files of
/// other formats are converted before that one opens them and after it saved them. Documents have the names
/// of the users' files. The other office must not keep a file open.
class ConvertingWord final : public word::Application, public std::enable_shared_from_this<ConvertingWord> {
  public:
    /// The converter has to outlive it.
    ConvertingWord(word::ApplicationPtr office, FileConverter& converter)
        : office_(std::move(office)), conversion_(converter) {}

    std::string Name() override { return office_->Name(); }
    std::string Version() override { return office_->Version(); }
    word::DocumentsPtr Documents() override;
    word::SelectionPtr Selection() override { return office_->Selection(); }
    word::UndoRecordPtr UndoRecord() override { return office_->UndoRecord(); }
    bool canSaveAs(word::WdSaveFormat format) override {
        return office_->canSaveAs(format) || conversion_.canWrite(format);
    }
    void Quit(word::WdSaveOptions saveChanges) override;

    [[nodiscard]] const std::vector<std::shared_ptr<ConvertingDocument>>& documents() const {
        return documents_;
    }
    word::DocumentPtr open(const std::string& fileName);
    word::DocumentPtr add(const std::string& templatePath);
    void remove(const ConvertingDocument& document);

  private:
    /// Returns the format in which the file would be saved; none for a name without a format.
    std::optional<word::WdSaveFormat> formatOf(const std::string& path);

    word::ApplicationPtr office_;
    Conversion<word::WdSaveFormat> conversion_;
    std::vector<std::shared_ptr<ConvertingDocument>> documents_;
};

}  // namespace mergeloom
