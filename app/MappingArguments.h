#pragma once

#include "app/MappingOptions.h"

#include <string>

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

}  // namespace mergeloom
