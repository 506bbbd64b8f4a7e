#include "app/CAutoMapping.h"

#include "app/MappedExcel.h"
#include "app/MappedWord.h"
#include "app/MappingArguments.h"
#include "app/MappingSource.h"
#include "app/MergeloomErrorCodes.h"
#include "app/modMain.h"
#include "base/ErrorHandler.h"
#include "base/Paths.h"
#include "xml/COptions.h"

namespace mergeloom {

namespace {

constexpr const char* kMappingModule = "CAutoMapping";
constexpr const char* kExecute = "Execute";
constexpr const char* kOtherStart =
    "The document begins with a table, a field or a place, where nothing can be inserted. Option '--at end' "
    "begins the mapping at its end.";

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

void showWarning(Messages& messages, const std::string& text) {
    if (!text.empty()) messages.show({text, MessageIcon::Exclamation, MessageButtons::Ok});
}

}  // namespace

void CAutoMapping::ReadArguments() {
    arguments_ = readMappingArguments(options_, allowExistingTemplate_);
    templatesFolder_ =
        options_.mapsAll() ? fullPath(options_.folder) : GetParentFolder(arguments_.targetPath, false);
}

bool CAutoMapping::Execute() {
    return trapped([this] { return map(); });
}

bool CAutoMapping::trapped(const std::function<bool()>& body) {
    try {
        return body();
    } catch (const MappingRefusal& refusal) {
        showMessage(refusal.what());
    } catch (const AutomationError& error) {
        if (isMappingError(error.number())) throw;
        errors_.report(
            {error.number(), error.description(), {}, kMappingModule, kExecute, shownPlace(error.place())});
    } catch (const std::exception& error) {
        errors_.report(
            {0, error.what(), {}, kMappingModule, kExecute, shownPlace(std::source_location::current())});
    }
    return false;
}

bool CAutoMapping::map() {
    const std::unique_ptr<MappingTarget> office = makeOffice();
    checkArguments(*office, arguments_.targetPath);
    auto source = std::make_unique<MappingSource>(arguments_.xmlFile, errors_, messages_);
    const TreeNode& object = chosenObject(*source);
    readFolders(source->document());
    const DropPorts ports{errors_, messages_, progress_};
    if (!mapObject(*office, *source, object, ports)) return false;
    // Saving takes memory in proportion to the document, so the tree's is freed before.
    source.reset();
    save(*office, arguments_.targetPath);
    return true;
}

const TreeNode& CAutoMapping::chosenObject(MappingSource& source) const {
    const TreeNode* first = source.firstObject();
    if (!first) RaiseMappingError(kXmlFileIncorrect);
    return options_.object.empty() ? *first : *objectNamed(objectsOf(source), options_.object).node;
}

std::unique_ptr<MappingTarget> CAutoMapping::makeOffice() {
    if (gExcelMode == 0) return std::make_unique<MappedWord>(startWord_, formats_, errors_);
    return std::make_unique<MappedExcel>(startExcel_, formats_, errors_);
}

void CAutoMapping::checkArguments(const MappingTarget& office, const std::string& target) const {
    if (arguments_.type == MappingType::LabelDocument && !office.makesLabels()) {
        throw MappingRefusal(office.name() + " makes no labels; leave out -label or make them with Word.");
    }
    target.empty() ? checkInPlace(office) : checkTarget(office, target);
    checkSource(office);
    checkStart();
}

void CAutoMapping::checkTarget(const MappingTarget& office, const std::string& target) {
    if (!office.knowsExtensionOf(target)) {
        throw MappingRefusal("The template '" + target + "' has no file extension that " + office.name() +
                             " knows.");
    }
    const std::string refusal = office.refusalToSave(target);
    if (refusal.empty()) return;
    throw MappingRefusal("The template '" + target + "' cannot be written: saving as \"" +
                         office.formatNameOf(target) + "\" is not available. " + refusal);
}

/// Files of the office's own kind keep their format, whatever their name.
void CAutoMapping::checkInPlace(const MappingTarget& office) const {
    const std::string& document = arguments_.useDocument;
    if (!office.isForeign(document)) return;
    const std::string start = "The document '" + document + "' cannot be changed in place: ";
    if (!office.knowsExtensionOf(document)) {
        throw MappingRefusal(start + office.name() +
                             " does not save in its format. Let -template name the file to write.");
    }
    const std::string refusal = office.refusalToSave(document);
    if (refusal.empty()) return;
    throw MappingRefusal(start + "saving as \"" + office.formatNameOf(document) + "\" is not available. " +
                         refusal);
}

void CAutoMapping::checkSource(const MappingTarget& office) const {
    const std::string refusal = office.refusalToOpen(documentToBuildOn());
    if (!refusal.empty()) throw MappingRefusal(refusal);
}

void CAutoMapping::checkStart() const {
    const bool hasChoice = !documentToBuildOn().empty();
    if (options_.at.empty() || hasChoice) return;
    throw MappingRefusal("Option '--at' needs a document to build on; name it with -usedocument.");
}

std::string CAutoMapping::documentToBuildOn() const {
    if (!arguments_.useDocument.empty()) return arguments_.useDocument;
    if (arguments_.type == MappingType::LabelDocument) return arguments_.labelDocument;
    return arguments_.targetExists ? arguments_.targetPath : "";
}

void CAutoMapping::readFolders(const StructureDocument& document) {
    COptions options{errors_};
    options.initIfThere(document.documentElement());
    if (documentsFolder_.empty()) documentsFolder_ = options.DocumentsFolder();
    if (templatesFolder_.empty()) templatesFolder_ = options.TemplatesFolder();
}

void CAutoMapping::makeDocument(MappingTarget& office) {
    if (!arguments_.useDocument.empty()) {
        office.openDocument(arguments_.useDocument);
    } else if (arguments_.type == MappingType::LabelDocument) {
        openLabelDocument(office);
    } else {
        office.addDocument(documentToBuildOn());
    }
}

void CAutoMapping::openLabelDocument(MappingTarget& office) {
    try {
        office.openDocument(arguments_.labelDocument);
    } catch (const AutomationError& error) {
        if (error.number() != kFileCouldNotBeRead) throw;
        // The mapping error does not say what is wrong with the file.
        showMessage(error.description());
        RaiseMappingError(kLabelDocumentIncorrect);
    }
}

bool CAutoMapping::mapObject(MappingTarget& office, const MappingSource& source, const TreeNode& object,
                             const DropPorts& ports) {
    const std::optional<FieldKeys> fields = chosenFields(source, object, ports.messages);
    if (!fields) showWarning(ports.messages, leftOutControls(source, object));
    if (!office.isStarted()) office.start();
    makeDocument(office);
    if (!options_.at.empty() && options_.at != kAtStart) office.beginAt(options_.at);
    const MappedObject mapped{object, source.xmlNodes(), documentTypeOf(arguments_.type),
                              fields ? &*fields : nullptr};
    const bool dropped = dropObject(office, source, mapped, ports);
    if (!dropped && beginsAtRefusedStart(office)) showWarning(ports.messages, kOtherStart);
    return dropped;
}

/// Nobody selected anything in an unattended run, so the droppers' own sentence is not enough.
bool CAutoMapping::beginsAtRefusedStart(MappingTarget& office) const {
    const bool isGiven = !documentToBuildOn().empty() && arguments_.type != MappingType::LabelDocument;
    const bool isStart = options_.at.empty() || options_.at == kAtStart;
    return isGiven && isStart && !office.takesDrops();
}

std::optional<FieldKeys> CAutoMapping::chosenFields(const MappingSource& source, const TreeNode& object,
                                                    Messages& messages) const {
    if (!listsFields(arguments_.fields)) return {};
    if (arguments_.type != MappingType::Listing) {
        showWarning(messages, "The list of fields is not used: only -listing maps chosen fields.");
        return {};
    }
    if (!namesFields(arguments_.fields)) RaiseMappingError(kFieldListNotDefined);
    const NamedFields named = fieldsNamed(object, source.xmlNodes(), arguments_.fields);
    const std::string unmatched = unmatchedSentence(named, object.Text());
    showWarning(messages, unmatched);
    if (!unmatched.empty()) showWarning(messages, leftOutControls(source, object));
    if (named.keys.empty()) RaiseMappingError(kFieldListIncorrect);
    return named.keys;
}

bool CAutoMapping::dropObject(MappingTarget& office, const MappingSource& source, const MappedObject& object,
                              const DropPorts& ports) {
    const auto findPicture = [&](const std::string& image) { return source.document().findPicture(image); };
    CNodeDropper dropper{ports.errors, ports.messages, findPicture, ports.progress};
    const bool dropped = office.drop(dropper, object);
    showWarning(ports.messages, dropper.nothingDropped());
    return dropped;
}

void CAutoMapping::save(MappingTarget& office, const std::string& givenTarget) {
    model::OfficeDocument& document = office.document();
    const std::string target = givenTarget.empty() ? document.FullName() : givenTarget;
    checkMayReplace(office, target);
    if (target == document.FullName()) {
        document.Save();
    } else {
        office.saveAs(target);
    }
    document.SetSaved(true);
}

void CAutoMapping::checkMayReplace(const MappingTarget& office, const std::string& target) const {
    if (!fileExists(target)) return;
    const bool isInPlace = arguments_.targetPath.empty() && !options_.mapsAll();
    const bool mayReplace = arguments_.targetExists || isInPlace;
    // Another program may have written the file while the mapping ran.
    if (!mayReplace) RaiseMappingError(kTemplateAlreadyExists);
    if (IsFileLocked(target)) {
        throw MappingRefusal(office.name() + " cannot save the template " + GetFileNameOnly(target) +
                             " because this file is already open elsewhere.");
    }
}

void CAutoMapping::showMessage(const std::string& text) {
    showWarning(messages_, text);
}

}  // namespace mergeloom
