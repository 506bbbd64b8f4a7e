#pragma once

#include "app/GnuOptions.h"
#include "droppers/DropContext.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>
#include <vector>

namespace mergeloom {

/// The kinds of results that a mapping makes of an object.
enum class MappingType { Listing = 0, ByView = 1, LabelDocument = 2, Form = 3 };

/// The arguments of a mapping on the command line. Paths are absolute.
struct MappingArguments {
    std::string xmlFile;
    std::string useDocument;  ///< the document to build on; may be empty
    /// The template to write; empty: the document to build on is changed in place. Unused when each object
    /// gets a template.
    std::string targetPath;
    bool targetExists = false;  ///< the new template is made from the one that it replaces
    std::string labelDocument;  ///< may be empty
    std::string fields;         ///< the field list as it was given
    bool listing = false;
    bool directory = false;
    MappingType type = MappingType::ByView;
};

/// Returns the full path of the structure document. Raises the mapping error when there is none.
std::string existingXmlFile();

/// Reads and checks the parsed command line. Raises the mapping error of the first check that fails. A
/// template without a folder is in the current folder, as in any other program. The options may name a folder
/// for the templates of all objects, which replaces the template.
MappingArguments readMappingArguments(const MappingOptions& options, bool allowExistingTemplate);

/// Returns true when the value of the switch for fields lists any.
bool listsFields(const std::string& fieldList);
/// Returns true when a list has anything but separators and blanks.
bool namesFields(const std::string& fieldList);

/// The fields that a list names.
struct NamedFields {
    FieldKeys keys;                      ///< of the fields in the tree, in the list's order
    std::vector<std::string> unmatched;  ///< the names that no field has
};

/// Returns a sentence with the names that match no field of the object with that title; empty when all match.
std::string unmatchedSentence(const NamedFields& fields, const std::string& object);

/// Finds the fields that a list names. The names are separated by commas, or by semicolons when there is no
/// comma, and are those of children of the object's node, regardless of letter case and the blanks around
/// them.
NamedFields fieldsNamed(const TreeNode& object, const XmlNodeCollection& xmlNodes,
                        const std::string& fieldList);

}  // namespace mergeloom
