#include "office/libreoffice/readback/KeptOriginal.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/session/OfficeFilters.h"

namespace mergeloom::libreoffice {

namespace {

std::string sentenceOf(const std::string& path, const model::GraftRefusal& refusal,
                       const std::string& losses) {
    std::string sentence =
        "The changes cannot be repeated in “" + fileNameOnly(path) + "”: " + refusal.reason;
    if (!refusal.place.empty()) sentence += ", near “" + refusal.place + "”";
    sentence += ". LibreOffice can write the whole document anew, which changes parts that you did not touch";
    return sentence + (losses.empty() ? "." : " and loses " + losses + ".");
}

}  // namespace

LibreOfficeSession& GraftingOffice::hidden() {
    if (!hidden_ || !hidden_->isAlive()) {
        hidden_.reset();
        hidden_ = std::make_unique<LibreOfficeSession>(files_);
    }
    return *hidden_;
}

bool KeptOriginal::serves(SaveFormat format) const {
    const FileFormat* const row = findFormat(format);
    return row != nullptr && row->engine && office_->graft().covers(format.kind);
}

std::string KeptOriginal::save(const WrittenDocument& written, const std::string& path, SaveFormat format) {
    kept_.reset();
    model::GraftRefusal refusal;
    std::string losses;
    try {
        const std::string& former = baseline(path, format);
        const model::EditedPackage package{format.kind, format.number, path,
                                           bytes_,      former,        written.exported};
        losses = office_->graft().lossesOf(package);
        Grafted result = grafted(package, written.mended, format);
        if (auto* const bytes = std::get_if<std::string>(&result)) return std::move(*bytes);
        if (office_->graft().isExport(package)) return written.mended;
        refusal = std::get<model::GraftRefusal>(std::move(result));
    } catch (const AutomationError& error) {
        refusal.reason = error.description();
    }
    throw model::LossySave(sentenceOf(path, refusal, losses), written.mended);
}

KeptOriginal::Grafted KeptOriginal::grafted(const model::EditedPackage& package, const std::string& mended,
                                            SaveFormat format) {
    const model::PackageGraft& graft = office_->graft();
    model::GraftResult result = graft.graft(
        {package.kind, package.format, package.fileName, package.original, package.baseline, mended});
    if (auto* const refusal = std::get_if<model::GraftRefusal>(&result)) return std::move(*refusal);
    auto* const changed = std::get_if<model::GraftedPackage>(&result);
    std::string bytes = changed == nullptr ? bytes_ : std::move(changed->bytes);
    if (auto fault = findFault(package, format, bytes)) return std::move(*fault);
    kept_ = graft.keptEntries(bytes_, bytes);
    return bytes;
}

const std::string& KeptOriginal::baseline(const std::string& path, SaveFormat format) {
    const BaselineKey key{parentFolder(path), format.number};
    const auto found = baselines_.find(key);
    if (found != baselines_.end()) return found->second;
    return baselines_.emplace(key, exportOf(bytes_, path, format)).first->second;
}

std::string KeptOriginal::exportOf(const std::string& bytes, const std::string& path, SaveFormat format) {
    return office_->hidden().files().exportOf(source_, bytes, path, format, password_);
}

/// The proof of the original itself is its baseline, to which the export was equal.
std::optional<model::GraftRefusal> KeptOriginal::findFault(const model::EditedPackage& package,
                                                           SaveFormat format, const std::string& result) {
    if (result == bytes_) return {};
    const model::PackageGraft& graft = office_->graft();
    const std::string proof = exportOf(result, package.fileName, format);
    if (!graft.findFault(package, {}, proof)) return {};
    // Most exports are read as they were written, so this is made on demand.
    return graft.findFault(package, exportOf(package.edited, package.fileName, format), proof);
}

std::unique_ptr<KeptOriginal> keepOriginal(const GraftingOfficePtr& office, LibreOfficeFiles& shown,
                                           const DocumentReference& document, const std::string& path,
                                           DocumentKind kind) {
    if (!office || !office->graft().covers(kind)) return {};
    const FileFormat* const row = findFormatToOpen(familyOf(kind), toLowerAscii(extension(path)));
    if (row == nullptr || !row->engine) return {};
    return std::make_unique<KeptOriginal>(office, shown.sourceOf(document), shown.plainBytes(document, path),
                                          shown.passwordOf(document));
}

}  // namespace mergeloom::libreoffice
