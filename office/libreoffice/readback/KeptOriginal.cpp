#include "office/libreoffice/readback/KeptOriginal.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/readback/ReadBack.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/libreoffice/session/PollingThread.h"

#include <future>

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

bool KeptOriginal::serves(SaveFormat format) const {
    const FileFormat* const row = findFormat(format);
    return row != nullptr && row->engine && office_->graft().covers(format.kind);
}

void KeptOriginal::prepare() {
    if (prepared_.valid() || baselines_.contains(keyOf(file_.path, file_.format))) return;
    prepared_ = office_->beginExport(exportOf(bytes_, file_.path, file_.format));
}

std::string KeptOriginal::save(const WrittenDocument& written, const std::string& path, SaveFormat format) {
    kept_.reset();
    model::GraftRefusal refusal;
    std::string losses;
    try {
        const std::string& former = baseline(path, format);
        const model::EditedPackage package{format.kind, format.number, path,
                                           *bytes_,     former,        written.exported};
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
    std::string bytes = *bytes_;
    if (changed != nullptr) bytes = std::move(changed->bytes);
    if (auto fault = findFault(package, format, bytes)) return std::move(*fault);
    kept_ = graft.keptEntries(*bytes_, bytes);
    return bytes;
}

KeptOriginal::BaselineKey KeptOriginal::keyOf(const std::string& path, SaveFormat format) {
    return {parentFolder(path), format.number};
}

const std::string& KeptOriginal::baseline(const std::string& path, SaveFormat format) {
    const BaselineKey key = keyOf(path, format);
    takePrepared();
    const auto found = baselines_.find(key);
    if (found != baselines_.end()) return found->second;
    return baselines_.emplace(key, office_->exportOf(exportOf(bytes_, path, format))).first->second;
}

/// Waits for the baseline that was begun before. It is made again on demand if that failed: the hidden office
/// may have been killed.
void KeptOriginal::takePrepared() try {
    const std::shared_future<std::string> prepared = std::exchange(prepared_, {});
    if (prepared.valid()) baselines_.emplace(keyOf(file_.path, file_.format), prepared.get());
} catch (const AutomationError&) {
}

HiddenExport KeptOriginal::exportOf(OriginalBytes bytes, const std::string& path, SaveFormat format) const {
    return {source_, std::move(bytes), path, format, password_};
}

/// The proof of the original itself is its baseline, to which the export was equal.
std::optional<model::GraftRefusal> KeptOriginal::findFault(const model::EditedPackage& package,
                                                           SaveFormat format, const std::string& result) {
    if (result == *bytes_) return {};
    const model::PackageGraft& graft = office_->graft();
    const auto exported = [&](const std::string& bytes) {
        const auto shared = std::make_shared<const std::string>(bytes);
        return office_->exportOf(exportOf(shared, package.fileName, format));
    };
    const std::string proof = exported(result);
    if (!graft.findFault(package, {}, proof)) return {};
    // Most exports are read as they were written, so this is made on demand.
    return graft.findFault(package, exported(package.edited), proof);
}

std::string checkedFile(LibreOfficeSession& shown, const DocumentReference& document, KeptOriginal* original,
                        const WrittenDocument& written, const std::string& path, SaveFormat format) {
    if (original == nullptr || !original->serves(format)) {
        checkWritten(shown, document, path, format, written.mended);
        return written.mended;
    }
    // The two use different offices.
    std::future<std::string> kept = [&] {
        const BlockedSignals blocked;
        return std::async(std::launch::async, [&] { return original->save(written, path, format); });
    }();
    checkWritten(shown, document, path, format, written.mended);
    return kept.get();
}

std::unique_ptr<KeptOriginal> keepOriginal(const GraftingOfficePtr& office, LibreOfficeFiles& shown,
                                           const DocumentReference& document, const std::string& path,
                                           DocumentKind kind) {
    if (!office || !office->graft().covers(kind)) return {};
    const FileFormat* const row = findFormatToOpen(familyOf(kind), toLowerAscii(extension(path)));
    if (row == nullptr || !row->engine) return {};
    const SaveFormat format = kind == DocumentKind::Excel ? SaveFormat(excel::XlFileFormat{row->number})
                                                          : SaveFormat(word::WdSaveFormat{row->number});
    return std::make_unique<KeptOriginal>(office, OriginalFile{path, format}, shown.sourceOf(document),
                                          shown.plainBytes(document, path), shown.passwordOf(document));
}

}  // namespace mergeloom::libreoffice
