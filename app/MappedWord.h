#pragma once

#include "app/MappingTarget.h"
#include "app/OfficeFormats.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "office/model/word/Document.h"

#include <optional>

namespace mergeloom {

/// Word and the document that a mapping makes in it.
class MappedWord final : public MappingTarget {
  public:
    /// All arguments have to outlive it.
    MappedWord(const WordStarter& startWord, const OfficeFormats& formats, ErrorHandler& errors)
        : startWord_(startWord), formats_(formats), errors_(errors) {}

    [[nodiscard]] std::string name() const override { return "Word"; }
    [[nodiscard]] bool makesLabels() const override { return true; }
    [[nodiscard]] std::string templateExtension() const override { return "dotx"; }
    [[nodiscard]] bool knowsExtensionOf(const std::string& path) const override;
    [[nodiscard]] std::string formatNameOf(const std::string& path) const override;
    [[nodiscard]] std::string refusalToSave(const std::string& path) const override;
    [[nodiscard]] std::string refusalToOpen(const std::string& path) const override;
    [[nodiscard]] bool isForeign(const std::string& path) const override;
    void start() override { office_.emplace(startWord_(), errors_); }
    [[nodiscard]] bool isStarted() const override { return office_.has_value(); }
    void addDocument(const std::string& templatePath) override;
    void openDocument(const std::string& path) override;
    void beginAt(const std::string& place) override;
    bool takesDrops() override;
    bool drop(CNodeDropper& dropper, const MappedObject& object) override;
    model::OfficeDocument& document() override { return *document_; }
    void saveAs(const std::string& path) override;
    void closeDocument() override;

  private:
    const WordStarter& startWord_;
    const OfficeFormats& formats_;
    ErrorHandler& errors_;
    std::optional<ScopedOffice<word::Application>> office_;
    word::DocumentPtr document_;
};

}  // namespace mergeloom
