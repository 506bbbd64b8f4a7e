#include "app/CAutoMapping.h"

#include "app/MappingFields.h"
#include "app/MergeloomErrorCodes.h"
#include "app/StartedOffice.h"
#include "app/modMain.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "droppers/CNodeDropper.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/model/word/Document.h"
#include "office/model/word/Documents.h"
#include "office/model/word/Selection.h"
#include "xml/COptions.h"

#include <memory>

namespace mergeloom {

namespace {

constexpr const char* kModule = "CAutoMapping";
constexpr const char* kExecute = "Execute";

DocumentType documentTypeOf(MappingType type) {
    switch (type) {
        case MappingType::Listing:
            return DocumentType::Table;
        case MappingType::LabelDocument:
            return DocumentType::LabelDocument;
        case MappingType::Form:
            return DocumentType::Form;
        default:
            return DocumentType::ByView;
    }
}

/// Word's file names carry no case; the table of extensions does.
std::string extensionOf(const std::string& path) {
    return toLowerAscii(extension(path));
}

/// Whether the document that was just opened came up with a selection, without which nothing can be dropped.
bool canDropInto(word::Application& application) {
    try {
        return application.Selection() != nullptr;
    } catch (const AutomationError&) {
        return false;
    }
}

}  // namespace

void CAutoMapping::ReadArguments() {
    arguments_ = readMappingArguments(allowExistingTemplate_);
    templatesFolder_ = GetParentFolder(arguments_.targetPath, false);
}

bool CAutoMapping::Execute() {
    try {
        return map();
    } catch (const AutomationError& error) {
        if (isMappingError(error.number())) throw;
        errors_.report({error.number(), error.description(), {}, kModule, kExecute});
    } catch (const std::exception& error) {
        errors_.report({0, error.what(), {}, kModule, kExecute});
    }
    return false;
}

bool CAutoMapping::map() {
    if (gExcelMode != 0) return refuse("Mapping into an Excel workbook is not available yet.");
    const std::string& target = arguments_.targetPath;
    if (!target.empty() && !isWordExtension(extensionOf(target))) {
        return refuse("The template '" + target + "' has no file extension that Word knows.");
    }

    auto source = std::make_unique<MappingSource>(arguments_.xmlFile, errors_, messages_);
    const TreeNode* object = source->firstObject();
    if (!object) RaiseMappingError(kXmlFileIncorrect);
    readFolders(source->document());
    const std::optional<FieldKeys> fields = chosenFields(*source, *object);

    const StartedOffice office{startWord_(), errors_};
    if (!canWriteTarget(*office)) return false;
    const word::DocumentPtr document = makeDocument(*office);
    if (!dropObject(*source, *object, fields, document)) return false;
    // Saving takes memory in proportion to the document; the tree's is free for it from here on.
    source.reset();
    return save(*document);
}

void CAutoMapping::readFolders(const StructureDocument& document) {
    COptions options{errors_};
    try {
        options.init(document.documentElement());
    } catch (const AutomationError& error) {
        // A structure document may come without options; there is no user whom this could help.
        if (error.number() != kApplicationError) throw;
    }
    if (documentsFolder_.empty()) documentsFolder_ = options.DocumentsFolder();
    if (templatesFolder_.empty()) templatesFolder_ = options.TemplatesFolder();
}

bool CAutoMapping::canWriteTarget(word::Application& application) {
    if (arguments_.targetPath.empty() || application.canSaveAs(targetFormat())) return true;
    return refuse("The template '" + arguments_.targetPath + "' cannot be written: saving as \"" +
                  wordFormatName(static_cast<int>(targetFormat())) + "\" is not available.");
}

word::DocumentPtr CAutoMapping::makeDocument(word::Application& application) {
    const word::DocumentsPtr documents = application.Documents();
    if (!arguments_.useDocument.empty()) {
        word::DocumentPtr document = documents->Open(arguments_.useDocument);
        if (!canDropInto(application)) RaiseMappingError(kLabelDocumentIncorrect);
        return document;
    }
    if (arguments_.type == MappingType::LabelDocument) return openLabelDocument(application);
    return documents->Add(arguments_.targetExists ? arguments_.targetPath : "");
}

word::DocumentPtr CAutoMapping::openLabelDocument(word::Application& application) {
    try {
        word::DocumentPtr document = application.Documents()->Open(arguments_.labelDocument);
        if (canDropInto(application)) return document;
    } catch (const AutomationError& error) {
        if (error.number() != kFileCouldNotBeRead) throw;
        // The mapping error does not say what is wrong with the file.
        refuse(error.description());
    }
    RaiseMappingError(kLabelDocumentIncorrect);
}

std::optional<FieldKeys> CAutoMapping::chosenFields(const MappingSource& source,
                                                    const TreeNode& object) const {
    if (arguments_.type != MappingType::Listing || !listsFields(arguments_.fields)) return {};
    if (!namesFields(arguments_.fields)) RaiseMappingError(kFieldListNotDefined);
    FieldKeys keys = fieldKeys(object, source.xmlNodes(), arguments_.fields);
    if (keys.empty()) RaiseMappingError(kFieldListIncorrect);
    return keys;
}

bool CAutoMapping::dropObject(const MappingSource& source, const TreeNode& object,
                              const std::optional<FieldKeys>& fields, const word::DocumentPtr& document) {
    const auto findPicture = [&](const std::string& image) { return source.document().findPicture(image); };
    CNodeDropper dropper{errors_, messages_, findPicture, progress_};
    return dropper.NodeDrop(object, document, source.xmlNodes(), false, documentTypeOf(arguments_.type),
                            fields ? &*fields : nullptr);
}

bool CAutoMapping::save(word::Document& document) {
    const std::string target = arguments_.targetPath.empty() ? document.FullName() : arguments_.targetPath;
    if (fileExists(target)) {
        const bool mayReplace = arguments_.targetExists || arguments_.targetPath.empty();
        // Another program may have written the file while the mapping ran.
        if (!mayReplace) RaiseMappingError(kTemplateAlreadyExists);
        if (IsFileLocked(target)) {
            return refuse("Word cannot save the template " + GetFileNameOnly(target) +
                          " because this file is already open elsewhere.");
        }
    }
    if (target == document.FullName()) {
        document.Save();
    } else {
        document.SaveAs(target, targetFormat());
    }
    document.SetSaved(true);
    return true;
}

bool CAutoMapping::refuse(const std::string& text) {
    messages_.show({text, MessageIcon::Exclamation, MessageButtons::Ok});
    return false;
}

word::WdSaveFormat CAutoMapping::targetFormat() const {
    return static_cast<word::WdSaveFormat>(wordFormatByExtension(extensionOf(arguments_.targetPath)));
}

}  // namespace mergeloom
