#include "office/graft/PackageGraft.h"

#include "office/graft/BookGraft.h"
#include "office/graft/Losses.h"
#include "office/graft/OriginalFormat.h"
#include "office/graft/WordGraft.h"
#include "office/opc/PartName.h"
#include "office/opc/ZipReader.h"

#include <map>
#include <string_view>

namespace mergeloom::graft {

namespace {

model::KeptEntries countKept(const std::string& original, const std::string& grafted) {
    const opc::ZipReader former(original, "original");
    const opc::ZipReader now(grafted, "grafted");
    std::map<std::string_view, std::string_view> packed;
    for (const opc::ZipEntry& entry : former.entries())
        packed[entry.name] = entry.raw;
    model::KeptEntries kept;
    for (const opc::ZipEntry& entry : now.entries()) {
        if (opc::isFolderName(entry.name)) continue;
        ++kept.all;
        const auto found = packed.find(entry.name);
        if (found != packed.end() && found->second == entry.raw) ++kept.unchanged;
    }
    return kept;
}

class OpenPackagingGraft final : public model::PackageGraft {
  public:
    [[nodiscard]] bool covers(DocumentKind kind) const override {
        return kind == DocumentKind::Word || kind == DocumentKind::Excel;
    }

    [[nodiscard]] model::GraftResult graft(const model::EditedPackage& package) const override {
        return package.kind == DocumentKind::Word ? graftDocument(package) : graftBook(package);
    }

    [[nodiscard]] std::string lossesOf(const model::EditedPackage& package) const override {
        return lossesBetween(package.original, package.baseline);
    }

    [[nodiscard]] bool isExport(const model::EditedPackage& package) const override {
        return isExportOfOffice(package);
    }

    [[nodiscard]] model::KeptEntries keptEntries(const std::string& original,
                                                 const std::string& grafted) const override {
        return countKept(original, grafted);
    }

    [[nodiscard]] std::optional<model::GraftRefusal> findFault(const model::EditedPackage& package,
                                                               const std::string& editedAgain,
                                                               const std::string& proof) const override {
        return package.kind == DocumentKind::Word ? findFaultInDocument(package, editedAgain, proof)
                                                  : findFaultInBook(package, editedAgain, proof);
    }
};

}  // namespace

std::unique_ptr<model::PackageGraft> makePackageGraft() {
    return std::make_unique<OpenPackagingGraft>();
}

}  // namespace mergeloom::graft
