#pragma once

#include "droppers/CNodeDropper.h"
#include "droppers/DropContext.h"
#include "office/model/OfficeDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"
#include "xml/modNamedItems.h"

#include <string>

namespace mergeloom {

/// An object that a mapping drops, and what it becomes.
struct MappedObject {
    const TreeNode& node;
    const XmlNodeCollection& xmlNodes;
    DocumentType documentType;
    const FieldKeys* fields;  ///< the columns of a table; none: all of them
};

/// An office that a mapping starts for itself, and the document that the mapping makes in it, one at a time.
/// At the end the document and the office are closed, unsaved.
class MappingTarget {
  public:
    MappingTarget() = default;
    MappingTarget(const MappingTarget&) = delete;
    MappingTarget& operator=(const MappingTarget&) = delete;
    virtual ~MappingTarget() = default;

    /// Returns its name in sentences for the user.
    [[nodiscard]] virtual std::string name() const = 0;
    [[nodiscard]] virtual bool makesLabels() const = 0;
    /// Returns the extension of templates for which none was given, without its dot.
    [[nodiscard]] virtual std::string templateExtension() const = 0;
    [[nodiscard]] virtual bool knowsExtensionOf(const std::string& path) const = 0;
    /// Returns the name of the format of the path's extension in dialogs.
    [[nodiscard]] virtual std::string formatNameOf(const std::string& path) const = 0;

    /// Return why the office cannot save in the format of the path's extension, or cannot open a file of that
    /// name, as sentences that say what to install or to choose; empty when it can.
    [[nodiscard]] virtual std::string refusalToSave(const std::string& path) const = 0;
    [[nodiscard]] virtual std::string refusalToOpen(const std::string& path) const = 0;
    /// Returns true when the file is not of the office's own kind: it is saved in the format of its
    /// extension.
    [[nodiscard]] virtual bool isForeign(const std::string& path) const = 0;

    /// Starts the office; to be called before the members below.
    virtual void start() = 0;
    [[nodiscard]] virtual bool isStarted() const = 0;
    /// Makes the document from a template, or an empty one when the path is empty.
    virtual void addDocument(const std::string& templatePath) = 0;
    /// Opens the document. Raises a mapping error or a MappingRefusal for one into which nothing can be
    /// dropped.
    virtual void openDocument(const std::string& path) = 0;

    /// Makes the mapping begin at a place of the document: kAtEnd, or the name of a place. Raises
    /// MappingRefusal when there is no such place.
    virtual void beginAt(const std::string& place) = 0;

    /// Returns true when forms and tables can be dropped where the mapping begins.
    [[nodiscard]] virtual bool takesDrops() = 0;
    /// Returns true when something was dropped.
    virtual bool drop(CNodeDropper& dropper, const MappedObject& object) = 0;
    virtual model::OfficeDocument& document() = 0;
    /// Saves the document in the format of the path's extension.
    virtual void saveAs(const std::string& path) = 0;
    /// Closes the document unsaved. Another one may follow.
    virtual void closeDocument() = 0;
};

}  // namespace mergeloom
