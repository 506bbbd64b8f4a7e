#include "office/libreoffice/session/OfficeProfile.h"

#include "base/Paths.h"
#include "office/libreoffice/session/LookSettings.h"
#include "office/libreoffice/session/ProcessGroup.h"

#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <span>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

std::string temporaryRoot() {
    std::string root = temporaryFolder();
    if (!root.empty()) return root;
    const char* const wanted = ::getenv("TMPDIR");
    raiseNotStarted("the folder for temporary files '" + std::string(wanted == nullptr ? "/tmp" : wanted) +
                    "' does not exist");
}

struct Setting {
    const char* group;  ///< after "/org.openoffice."
    const char* name;
    const char* value;
};

constexpr Setting kQuiet[] = {
    {"Office.Common/Misc", "UseLocking", "false"},
    {"Office.Common/Misc", "UseDocumentSystemFileLocking", "false"},
    {"Office.Common/Misc", "UseDocumentOOoLockFile", "false"},
    // A version that is newer than this one tests its drawing at the start, which takes most of the start.
    {"Setup/Product", "ooSetupLastVersion", "99.9"},
};

/// Settings that suppress the dialogs for a new user and files of the office beside a document.
constexpr Setting kShown[] = {
    {"Office.Common/Misc", "FirstRun", "false"},
    {"Office.Common/Misc", "ShowTipOfTheDay", "false"},
    {"Office.Common/Misc", "CrashReport", "false"},
    {"Office.UI.Infobar/Enabled", "WhatsNew", "false"},
    {"Office.UI.Infobar/Enabled", "Donate", "false"},
    {"Office.UI.Infobar/Enabled", "GetInvolved", "false"},
    {"Office.UI.Infobar/Enabled", "HyphenationMissing", "false"},
    {"Office.UI.Infobar/Enabled", "MacrosDisabled", "false"},
    {"Setup/Office", "MigrationCompleted", "true"},
    {"Office.Recovery/AutoSave", "Enabled", "false"},
    {"Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
};

/// Settings of a new profile, which the user may change.
constexpr Setting kFirst[] = {
    // Writer shows bookmarks, which mark places, only while it shows marks at all.
    {"Office.Writer/Content/NonprintingCharacter", "MetaCharacters", "true"},
    {"Office.Writer/Content/NonprintingCharacter", "Bookmarks", "true"},
    {"Office.Writer/Content/NonprintingCharacter", "ParagraphEnd", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "OptionalHyphen", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Space", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "ProtectedSpace", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Tab", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Break", "false"},
};

void write(std::ostream& file, std::span<const Setting> settings) {
    for (const Setting& setting : settings) {
        file << R"(<item oor:path="/org.openoffice.)" << setting.group << R"("><prop oor:name=")"
             << setting.name << R"(" oor:op="fuse"><value>)" << setting.value << "</value></prop></item>\n";
    }
}

/// Commands that would leave the document or open others; menus and bars do not show them.
constexpr const char* kDisabledCommands[] = {
    "RecentFileList",  "OpenRemote",    "SaveAsRemote",  "NewWindow", "FullScreen",
    "Reload",          "EditDoc",       "ReadOnlyDoc",   "OpenUrl",   "SaveAsTemplate",
    "TemplateManager", "AutoPilotMenu", "VersionDialog",
};

constexpr const char* kDisabledGroup = "/org.openoffice.Office.Commands/Execute/Disabled";

void disableCommands(std::ostream& file) {
    for (const char* const command : kDisabledCommands) {
        file << R"(<item oor:path=")" << kDisabledGroup << R"("><node oor:name=")" << command
             << R"(" oor:op="replace"><prop oor:name="Command"><value>)" << command
             << "</value></prop></node></item>\n";
    }
}

/// Returns the value of a setting as the office's files contain it.
std::string textOf(const LookSetting& setting) {
    if (const auto* const text = std::get_if<std::string>(&setting.value)) return *text;
    return std::to_string(std::get<std::int32_t>(setting.value));
}

void writeLook(std::ostream& file, const HostLook& look) {
    for (const LookSetting& setting : lookSettings(look)) {
        file << R"(<item oor:path=")" << setting.node << R"("><prop oor:name=")" << setting.name
             << R"(" oor:op="fuse"><value>)" << textOf(setting) << "</value></prop></item>\n";
    }
}

bool isOfLook(std::string_view item) {
    HostLook anyColors;
    anyColors.colors.emplace();
    return std::ranges::any_of(lookSettings(anyColors), [&](const LookSetting& setting) {
        return item.find('"' + setting.node + '"') != std::string_view::npos &&
               item.find("oor:name=\"" + setting.name + '"') != std::string_view::npos;
    });
}

bool isSetBy(std::span<const Setting> settings, std::string_view item) {
    return std::ranges::any_of(settings, [&](const Setting& setting) {
        const std::string group = std::string("\"/org.openoffice.") + setting.group + '"';
        const std::string name = std::string("oor:name=\"") + setting.name + '"';
        return item.find(group) != std::string_view::npos && item.find(name) != std::string_view::npos;
    });
}

/// Returns the items of an earlier run that stay, a line each as the office writes them; none when the file
/// is not whole.
std::vector<std::string> keptItems(const std::string& settings) {
    std::ifstream file(settings);
    std::vector<std::string> items;
    bool isWhole = false;
    for (std::string line; std::getline(file, line);) {
        isWhole = line.starts_with("</oor:items>");
        if (!line.starts_with("<item ")) continue;
        const bool isForced = isSetBy(kQuiet, line) || isSetBy(kShown, line) ||
                              line.find(kDisabledGroup) != std::string::npos || isOfLook(line);
        if (!isForced) items.push_back(line);
    }
    return isWhole ? items : std::vector<std::string>();
}

void writeSettings(std::ostream& file, OfficeMode mode, const HostLook& look,
                   const std::vector<std::string>& kept) {
    file
        << R"(<?xml version="1.0" encoding="UTF-8"?>)"
           "\n"
        << R"(<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema" )"
           R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">)"
           "\n";
    write(file, kQuiet);
    if (mode == OfficeMode::Shown) {
        write(file, kShown);
        disableCommands(file);
        writeLook(file, look);
        if (kept.empty()) write(file, kFirst);
    }
    for (const std::string& item : kept)
        file << item << '\n';
    file << "</oor:items>\n" << std::flush;
}

}  // namespace

PrivateFolder::PrivateFolder() {
    const std::string root = fullPath(temporaryRoot());
    std::string name = joinPath(root, "mergeloom-office-XXXXXX");
    if (::mkdtemp(name.data()) == nullptr) {
        raiseNotStarted("the folder for temporary files '" + root + "' cannot be written (" +
                        std::generic_category().message(errno) + ")");
    }
    path_ = name;
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

void makeOfficeProfile(const std::string& folder, OfficeMode mode, const HostLook& look) {
    const std::string user = joinPath(folder, "user");
    std::error_code error;
    std::filesystem::create_directories(user, error);
    const std::string settings = joinPath(user, "registrymodifications.xcu");
    const std::vector<std::string> kept = keptItems(settings);
    // An office that was killed leaves its lock; this profile is locked in another way.
    std::filesystem::remove(joinPath(user, ".lock"), error);
    std::filesystem::remove(joinPath(folder, ".lock"), error);
    const std::string written = settings + ".new";
    std::ofstream file(written);
    writeSettings(file, mode, look, kept);
    file.close();
    if (file) std::filesystem::rename(written, settings, error);
    if (!file || error) raiseNotStarted("the folder for its profile '" + folder + "' cannot be written");
}

}  // namespace mergeloom::libreoffice
