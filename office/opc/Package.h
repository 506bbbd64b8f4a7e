#pragma once

#include "base/FileStore.h"
#include "office/opc/ContentTypes.h"
#include "office/opc/PartStore.h"
#include "office/opc/Relationships.h"

#include <map>
#include <string>
#include <vector>

namespace mergeloom::opc {

/// An Open Packaging Conventions package (ECMA-376 Part 2) in memory. Parts that are not touched stay as they
/// stand in the archive, byte for byte and in their place. Part names start with "/" and are compared without
/// regard to case; "/" alone stands for the package itself. Content types and relationships are edited
/// through their objects, which are written when the package is; references to them last as long as the
/// package stays where it is and, for relationships, as long as their source part stays in it.
class Package {
  public:
    /// Takes the bytes of a package. The file's name serves messages only. Raises kFileCouldNotBeRead with a
    /// sentence that names the file and says what is wrong with it.
    static Package read(std::string bytes, const std::string& fileName, const ZipLimits& limits = {});
    /// A package that holds nothing but content types.
    static Package empty() { return Package(); }

    [[nodiscard]] const std::string& fileName() const { return fileName_; }
    [[nodiscard]] bool hasPart(const std::string& partName) const;
    /// A part's content. Raises kFileCouldNotBeRead when it is missing or damaged.
    [[nodiscard]] std::string readPart(const std::string& partName) const;
    /// What a part's content is told apart by, without unpacking it. Raises kFileCouldNotBeRead when there is
    /// no such part.
    [[nodiscard]] PartDigest digestOfPart(const std::string& partName) const;
    /// All parts in the archive's order, except those that hold relationships.
    [[nodiscard]] std::vector<std::string> partNames() const;

    /// Replaces a part in its place, or appends it.
    void writePart(const std::string& partName, std::string bytes);
    /// Writes a part and sees to its content type.
    void addPart(const std::string& partName, const std::string& contentType, std::string bytes);
    /// Takes a part out, with its relationships and its own content type. Relationships that lead to it stay.
    void removePart(const std::string& partName);

    [[nodiscard]] ContentTypes& contentTypes() { return contentTypes_; }
    [[nodiscard]] const ContentTypes& contentTypes() const { return contentTypes_; }
    /// Raises kFileCouldNotBeRead when they are malformed.
    [[nodiscard]] Relationships& relationshipsOf(const std::string& partName);

    /// The part that the package's officeDocument relationship leads to. Raises kFileCouldNotBeRead when
    /// there is none.
    [[nodiscard]] std::string mainPart() const;
    [[nodiscard]] Conformance conformance() const;
    /// True for a package with digital signatures (ECMA-376 Part 2, 10), which any change makes invalid.
    [[nodiscard]] bool isSigned() const;

    /// Writes the package. It can be written again, also after an error of the sink; without changes in
    /// between the bytes are the same.
    void write(ByteSink& sink);

  private:
    Package() : Package("", PartStore(), ContentTypes()) {}
    Package(std::string fileName, PartStore parts, ContentTypes contentTypes);

    [[noreturn]] void refuseMissing(const std::string& partName) const;
    [[nodiscard]] Relationships loadRelationships(const std::string& partName) const;
    [[nodiscard]] const Relationships& ownRelationships() const;
    void storeRelationships();
    void storeContentTypes();

    std::string fileName_;
    PartStore parts_;
    ContentTypes contentTypes_;
    std::map<std::string, Relationships> relationships_;  ///< those asked for so far, by their source's key
};

}  // namespace mergeloom::opc
