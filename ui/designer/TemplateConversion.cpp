#include "ui/designer/TemplateConversion.h"

#include "app/FileFormats.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/model/word/Document.h"
#include "ui/designer/MainForm.h"

namespace mergeloom {

namespace {

/// Returns the extension of the document that a template becomes; empty for any other file.
std::string documentExtension(const std::string& path) {
    const std::string templates = toLowerAscii(extension(path));
    if (templates == "dotx") return "docx";
    return templates == "dotm" ? "docm" : "";
}

/// Removes a file at the end of its life.
class ScopedCopy {
  public:
    ScopedCopy(TemplateFiles& files, const std::string& path, ErrorHandler& errors)
        : files_(files), errors_(errors), path_(files.copyToTemporaryFolder(path)) {}
    ScopedCopy(const ScopedCopy&) = delete;
    ScopedCopy& operator=(const ScopedCopy&) = delete;
    ~ScopedCopy() {
        trap(
            errors_, kMainForm, "ConvertTemplate", [this] { files_.remove(path_); },
            [this] { return path_; });
    }

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    TemplateFiles& files_;
    ErrorHandler& errors_;
    std::string path_;
};

}  // namespace

bool TemplateConversion::isConverted(const std::string& path) {
    return !documentExtension(path).empty();
}

std::string TemplateConversion::targetOf(const std::string& path) const {
    const std::string stem = path.substr(0, path.size() - extension(path).size() - 1);
    const std::string ending = "." + documentExtension(path);
    std::string target = stem + ending;
    for (int number = 2; files_.exists(target); ++number) {
        target = stem;
        target.append("_").append(std::to_string(number)).append(ending);
    }
    return target;
}

// The template is kept until its document exists: whatever fails, one of both is whole.
bool TemplateConversion::convert(const std::string& path, const std::string& target) {
    std::string backup;
    const bool made = succeeds(path,
                               [&] {
                                   const ScopedCopy copy(files_, path, errors_);
                                   backup = files_.keepBackup(path);
                                   saveDocument(copy.path(), target);
                               }) &&
                      files_.exists(target);
    if (made) {
        (void)succeeds(path, [&] { removeTemplate(path, target); });
    } else {
        (void)succeeds(path, [&] { restoreTemplate(path, backup); });
    }
    return made;
}

/// The new file replaces an earlier target only when it is complete.
void TemplateConversion::saveDocument(const std::string& temporaryCopy, const std::string& target) {
    const ScopedOffice office{startWord_(), errors_};
    const word::DocumentPtr document = office->Documents()->Add(temporaryCopy);
    document->SaveAs(target, wordFormatOf(target));
    document->SetSaved(true);
    document->Close(word::WdSaveOptions::wdDoNotSaveChanges);
}

void TemplateConversion::removeTemplate(const std::string& path, const std::string& target) {
    if (path != target) files_.remove(path);
}

void TemplateConversion::restoreTemplate(const std::string& path, const std::string& backup) {
    if (!files_.exists(path)) files_.copy(backup, path);
}

template <typename Body>
bool TemplateConversion::succeeds(const std::string& path, const Body& body) {
    bool done = false;
    trap(
        errors_, kMainForm, "ConvertTemplate",
        [&] {
            body();
            done = true;
        },
        [&] { return path; });
    return done;
}

}  // namespace mergeloom
