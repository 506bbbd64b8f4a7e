#pragma once

#include "base/FileStore.h"
#include "base/Record.h"
#include "droppers/PlaceDirectory.h"
#include "office/model/DocumentHost.h"
#include "office/model/letters/LetterTemplate.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mergeloom {

/// The data of a preview. The nodes and the records have to outlive it.
struct PreviewSource {
    const XmlNodeCollection& xmlNodes;
    std::vector<const TreeNode*> objects;
    std::span<const Record> records;
    letters::PictureFinder findPicture;
};

/// The records of one letter, counted from 1.
struct PreviewedRecords {
    std::size_t first = 1;
    std::size_t last = 1;
    std::size_t count = 1;    ///< the number of letters
    bool areSamples = false;  ///< true for captions in place of values
};

/// A template that is filled for display, one letter at a time: with the records of the object that has the
/// most places in it, or with a sample if there are no records of this object.
class LetterPreview {
  public:
    /// Compiles the bytes of a docx or xlsx; the path is only named in errors. The file store has to outlive
    /// it. Raises kNotAvailable with a sentence for the user when nothing can be filled, and the errors of
    /// openLetterTemplate.
    LetterPreview(FileStore& files, DocumentKind kind, const std::string& path, std::string bytes,
                  const PreviewSource& source);

    /// Returns the number of letters, at least 1.
    [[nodiscard]] std::size_t count() const;
    /// Returns the records of a letter, which is counted from 0.
    [[nodiscard]] PreviewedRecords recordsOf(std::size_t letter) const;
    /// Returns the bytes of a letter. Raises an AutomationError with a sentence for the user.
    [[nodiscard]] std::string write(std::size_t letter);

  private:
    void chooseObject(const PreviewSource& source);
    void compile(const std::string& path, const letters::PictureFinder& findPicture);
    void chooseRecords(const PreviewSource& source);
    [[nodiscard]] bool isFilledBy(const Record& record) const;

    PlaceScheme scheme_;
    std::unique_ptr<letters::LetterTemplate> template_;
    const TreeNode* object_ = nullptr;
    letters::PlaceSources places_;
    std::unique_ptr<letters::Letters> letters_;
    std::size_t recordsPerLetter_ = 1;
    std::span<const Record> records_;
    std::vector<Record> sample_;
};

}  // namespace mergeloom
