#pragma once

#include "base/Progress.h"
#include "droppers/DropReports.h"
#include "droppers/DroppedNames.h"
#include "droppers/NameRule.h"
#include "droppers/modWordNormalizeName.h"
#include "xml/XmlNodeCollection.h"

#include <functional>
#include <string>
#include <vector>

namespace mergeloom {

/// Tree keys of chosen fields, in the order in which they are wanted.
using FieldKeys = std::vector<std::string>;

/// What vDocumentType asks a table, query or form to become.
enum class DocumentType { ByView = 0, Table = 1, LabelDocument = 2, Form = 3 };

/// Finds the picture that a control's Image attribute names: the file's full path, or an empty text when
/// there is no such file.
using PictureFinder = std::function<std::string(const std::string& image)>;

/// The settings that all droppers of one drop share.
struct DropSettings {
    bool showDialog = false;
    DocumentType documentType = DocumentType::ByView;
    const FieldKeys* fields = nullptr;  ///< none: every field
};

class FieldDialog;

/// What all droppers of one drop work with.
struct DropContext {
    DropReports& reports;
    const XmlNodeCollection& xmlNodes;
    const PictureFinder& findPicture;
    Progress& progress;
    DropSettings settings;
    FieldDialog* fieldDialog = nullptr;          ///< none where there is no user to choose
    NameRule normalizeName = WordNormalizeName;  ///< of the kind of document
    DroppedNames places{};                       ///< those of the places that this drop made
    DroppedNames tables{};  ///< those of its tables; what it made itself is no earlier table
    /// Why nothing of an object was dropped, where the user was not told.
    std::string nothingDropped{};
};

}  // namespace mergeloom
