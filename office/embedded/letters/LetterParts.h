#pragma once

#include "base/FileStore.h"
#include "office/embedded/letters/LetterArchive.h"
#include "office/opc/ContentTypes.h"
#include "office/opc/PictureFile.h"
#include "office/opc/Relationships.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// Returns the path of the file that an image of a record names, or an empty text when there is none.
using PictureFinder = std::function<std::string(const std::string& image)>;

/// A picture that a letter shows and its template does not have.
struct LetterPicture {
    std::string name;
    opc::PictureFile file;
    std::string partName;
};

/// Adds the pictures of records to letters: their parts, relationships and content types.
class LetterParts {
  public:
    /// The archive must outlive it.
    LetterParts(FileStore& files, PictureFinder find, const LetterArchive& archive)
        : files_(files), find_(std::move(find)), archive_(archive) {}

    /// Forgets the pictures of the letter before.
    void begin();
    /// Returns a picture of the letter, or null for a file that does not exist. Raises kFileCouldNotBeRead
    /// for one that is no picture.
    const LetterPicture* add(const std::string& image);
    /// Returns the id of a relationship from a part to a picture.
    std::string link(const std::string& partName, const LetterPicture& picture);
    /// Adds a part like one of the template, with other content. Returns its name, which relationships of it
    /// need before its content is known.
    std::string addLike(const std::string& partName);
    void setContent(const std::string& partName, std::string xml);
    /// Returns the id of a new relationship from the main part to such a part, of the type of another one.
    std::string linkLike(const std::string& mainPart, const std::string& id, const std::string& partName);

    /// Adds the parts of the pictures to those of the letter.
    void addTo(ChangedParts& changed);

  private:
    std::string newPartName(const std::string& start, const std::string& extension);
    opc::Relationships& relationshipsOf(const std::string& partName);

    FileStore& files_;
    PictureFinder find_;
    const LetterArchive& archive_;
    std::map<std::string, LetterPicture> pictures_;  ///< by their paths
    std::map<std::string, std::string> bytes_;       ///< by their parts
    std::map<std::string, opc::Relationships> relationships_;
    std::map<std::pair<std::string, std::string>, std::string> links_;  ///< by the parts at both ends
    std::map<std::string, std::string> models_;  ///< the template's parts by those that are like them
    int lastNumber_ = 0;
};

}  // namespace mergeloom::embedded
