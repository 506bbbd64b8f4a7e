#pragma once

#include "base/FileStore.h"
#include "office/embedded/parts/LetterArchive.h"
#include "office/opc/ContentTypes.h"
#include "office/opc/PictureFile.h"
#include "office/opc/Relationships.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

/// A picture that is added to a filled file.
struct AddedPicture {
    std::string name;
    opc::PictureFile file;
    std::string partName;
};

/// Collects the parts, relationships and content types that are added to a filled file.
class AddedParts {
  public:
    /// Returns the path of the file of an image, or an empty text if there is none.
    using PictureFinder = std::function<std::string(const std::string& image)>;

    /// The archive must outlive it. Pictures get parts whose names begin as given.
    AddedParts(FileStore& files, PictureFinder find, const LetterArchive& archive, std::string picturePart)
        : files_(files), find_(std::move(find)), archive_(archive), picturePart_(std::move(picturePart)) {}

    /// Discards the additions to the previous file.
    void begin();
    /// Adds a picture and returns it; null if its file does not exist. Raises kFileCouldNotBeRead if the file
    /// is not a picture.
    const AddedPicture* add(const std::string& image);
    /// Adds a relationship from a part to a picture, unless it exists, and returns its id.
    std::string link(const std::string& partName, const AddedPicture& picture);
    /// Adds a part with the relationships and content type of a part of the template. Returns its name; its
    /// content is set later.
    std::string addLike(const std::string& partName);
    void setContent(const std::string& partName, std::string xml);
    /// Adds a relationship from the main part to such a part, of the type of the relationship with the given
    /// id. Returns its id.
    std::string linkLike(const std::string& mainPart, const std::string& id, const std::string& partName);

    /// Adds a part of XML, whose name begins as given, and a relationship to it.
    void addXml(const std::string& sourcePart, std::string_view shortType, const std::string& start,
                std::string xml);

    /// Appends all additions to the changed parts.
    void addTo(ChangedParts& changed);

  private:
    std::string newPartName(const std::string& start, const std::string& extension);
    opc::Relationships& relationshipsOf(const std::string& partName);

    FileStore& files_;
    PictureFinder find_;
    const LetterArchive& archive_;
    std::string picturePart_;
    std::map<std::string, AddedPicture> pictures_;  ///< by their paths
    std::map<std::string, std::string> bytes_;      ///< by their parts
    std::map<std::string, opc::Relationships> relationships_;
    std::map<std::pair<std::string, std::string>, std::string> links_;  ///< by the parts at both ends
    /// The parts of the template by the names of parts that were added like them.
    std::map<std::string, std::string> models_;
    bool hasXml_ = false;  ///< true if a part of XML was added
    int lastNumber_ = 0;
};

}  // namespace mergeloom::embedded
