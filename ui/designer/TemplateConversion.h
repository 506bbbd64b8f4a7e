#pragma once

#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "ui/designer/TemplateFiles.h"

#include <string>
#include <utility>

namespace mergeloom {

/// Makes a document of a template, which is edited from then on: dotx becomes docx and dotm docm. The
/// template is removed; its copy remains under its name with ".bak" after it, or with ".bak1" and so on.
class TemplateConversion {
  public:
    /// The office is a hidden one. Files and errors have to outlive it.
    TemplateConversion(WordStarter startWord, TemplateFiles& files, ErrorHandler& errors)
        : startWord_(std::move(startWord)), files_(files), errors_(errors) {}

    /// Returns true if a file of that name is converted before it is opened.
    static bool isConverted(const std::string& path);
    /// Returns the path of the document for a template: the first that no file has yet.
    [[nodiscard]] std::string targetOf(const std::string& path) const;

    /// Converts the template to the target, which is replaced when it exists, and returns whether the target
    /// exists then. All errors are reported; the template is whole then.
    bool convert(const std::string& path, const std::string& target);

  private:
    void saveDocument(const std::string& temporaryCopy, const std::string& target);
    void removeTemplate(const std::string& path, const std::string& target);
    void restoreTemplate(const std::string& path, const std::string& backup);
    template <typename Body>
    bool succeeds(const std::string& path, const Body& body);

    WordStarter startWord_;
    TemplateFiles& files_;
    ErrorHandler& errors_;
};

}  // namespace mergeloom
