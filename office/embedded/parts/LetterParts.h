#pragma once

#include "base/FileStore.h"
#include "office/embedded/parts/LetterArchive.h"
#include "office/model/letters/LetterTemplate.h"
#include "office/opc/ContentTypes.h"
#include "office/opc/PictureFile.h"
#include "office/opc/Relationships.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

/// A picture that is added to a letter.
struct LetterPicture {
    std::string name;
    opc::PictureFile file;
    std::string partName;
};

/// Collects the parts, relationships and content types that are added to a letter.
class LetterParts {
  public:
    /// Returns the path of the file of an image, or an empty text if there is none.
    using PictureFinder = std::function<std::string(const std::string& image)>;

    /// The archive must outlive it. Pictures get parts whose names begin as given.
    LetterParts(FileStore& files, PictureFinder find, const LetterArchive& archive, std::string picturePart)
        : files_(files), find_(std::move(find)), archive_(archive), picturePart_(std::move(picturePart)) {}

    /// Discards the additions to the previous letter.
    void begin();
    /// Adds a picture and returns it; null if its file does not exist. Raises kFileCouldNotBeRead if the file
    /// is not a picture.
    const LetterPicture* add(const std::string& image);
    /// Adds a relationship from a part to a picture, unless it exists, and returns its id.
    std::string link(const std::string& partName, const LetterPicture& picture);
    /// Adds a part with the relationships and content type of a part of the template. Returns its name; its
    /// content is set later.
    std::string addLike(const std::string& partName);
    /// Keeps the XML of content that the letter leaves out. Returns its number.
    std::size_t omit(const std::string& xml);
    /// Returns how much content has been kept, or discards what was kept after that.
    [[nodiscard]] std::size_t omittedCount() const { return omitted_.size(); }
    void keepOmitted(std::size_t count) { omitted_.resize(count); }
    void setContent(const std::string& partName, std::string xml);
    /// Adds a relationship from the main part to such a part, of the type of the relationship with the given
    /// id. Returns its id.
    std::string linkLike(const std::string& mainPart, const std::string& id, const std::string& partName);

    /// Sets the part that the additions of the main document belong to.
    void setMainPart(const std::string& name) { mainPart_ = name; }
    /// Appends all additions to the changed parts.
    void addTo(ChangedParts& changed);

  private:
    void addOmitted();
    std::string newPartName(const std::string& start, const std::string& extension);
    opc::Relationships& relationshipsOf(const std::string& partName);

    FileStore& files_;
    PictureFinder find_;
    const LetterArchive& archive_;
    std::string picturePart_;
    std::map<std::string, LetterPicture> pictures_;  ///< by their paths
    std::map<std::string, std::string> bytes_;       ///< by their parts
    std::map<std::string, opc::Relationships> relationships_;
    std::map<std::pair<std::string, std::string>, std::string> links_;  ///< by the parts at both ends
    /// The parts of the template by the names of parts that were added like them.
    std::map<std::string, std::string> models_;
    std::vector<std::string> omitted_;
    std::string mainPart_;
    int lastNumber_ = 0;
};

}  // namespace mergeloom::embedded
