#include "ui/designer/TemplateDialogs.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "ui/dialogs/mComDlg.h"

#include <algorithm>
#include <vector>

namespace mergeloom {

namespace {

std::string patternsOf(const std::vector<OfferedFormat>& formats) {
    std::string patterns;
    for (const OfferedFormat& format : formats)
        patterns += (patterns.empty() ? "" : ";") + format.filter;
    return patterns;
}

/// Returns a filter with an entry for all files that can be templates, and one for all others.
std::string openFilter(TemplateOffice& office) {
    const std::string templates =
        AddFilter("", office.texts().typeName, patternsOf(office.templateFormats(FormatUse::Open)),
                  PatternInDescription::Shown);
    return AddFilter(templates, "All Files", "*", PatternInDescription::Shown);
}

/// Returns a filter with an entry for each format, since the entry that is chosen decides the format.
std::string saveFilter(const std::vector<OfferedFormat>& formats) {
    std::string filter;
    for (const OfferedFormat& format : formats)
        filter = AddFilter(filter, format.name, format.filter, PatternInDescription::Shown);
    return filter;
}

/// Returns the number of the entry that has the name's extension; 1 without one.
int entryFor(const std::string& name, const std::vector<OfferedFormat>& formats) {
    const auto found =
        std::ranges::find(formats, "*." + toLowerAscii(extension(name)), &OfferedFormat::filter);
    return found == formats.end() ? 1 : static_cast<int>(found - formats.begin()) + 1;
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

std::string TemplateDialogs::askToSave(TemplateOffice& office, const std::string& folder,
                                       const std::string& name) {
    const std::vector<OfferedFormat> formats = office.templateFormats(FormatUse::Save);
    return ask({.kind = FileDialogKind::Save,
                .title = "Save Template As",
                .extension = office.defaultExtension(),
                .directory = folder,
                .filter = saveFilter(formats),
                .fileName = name,
                .filterIndex = entryFor(name, formats)});
}

std::string TemplateDialogs::ask(const FileQuestion& question) {
    std::string path;
    std::vector<std::string> paths;
    return SelectFile(dialog_, question, path, paths) ? fullPath(path) : std::string();
}

}  // namespace mergeloom
