#include "ui/designer/TemplateDialogs.h"

#include "base/Paths.h"
#include "ui/dialogs/mComDlg.h"

#include <vector>

namespace mergeloom {

namespace {

std::string patternsOf(const std::vector<OfferedFormat>& formats) {
    std::string patterns;
    for (const OfferedFormat& format : formats)
        patterns += (patterns.empty() ? "" : ";") + format.filter;
    return patterns;
}

/// Returns a filter with an entry for all templates, and one for all other files that the office opens.
std::string openFilter(TemplateOffice& office) {
    const std::string templates =
        AddFilter("", office.texts().typeName, patternsOf(office.templateFormats(FormatUse::Open)));
    return AddFilter(templates, "All Files", "*");
}

/// Returns a filter with an entry for each format, since the entry that is chosen decides the format.
std::string saveFilter(TemplateOffice& office) {
    std::string filter;
    for (const OfferedFormat& format : office.templateFormats(FormatUse::Save))
        filter = AddFilter(filter, format.name, format.filter);
    return filter;
}

}  // namespace

std::string TemplateDialogs::askToOpen(TemplateOffice& office, const std::string& folder) {
    return ask({.kind = FileDialogKind::Open,
                .title = "Open",
                .extension = office.defaultExtension(),
                .directory = folder,
                .filter = openFilter(office),
                .fileName = {}});
}

std::string TemplateDialogs::askToSave(TemplateOffice& office, const std::string& folder) {
    return ask({.kind = FileDialogKind::Save,
                .title = "Save Template As",
                .extension = office.defaultExtension(),
                .directory = folder,
                .filter = saveFilter(office),
                .fileName = {}});
}

std::string TemplateDialogs::ask(const FileQuestion& question) {
    std::string path;
    std::vector<std::string> paths;
    return SelectFile(dialog_, question, path, paths) ? fullPath(path) : std::string();
}

}  // namespace mergeloom
