#include "office/libreoffice/session/OfficeProfile.h"

#include "base/Paths.h"
#include "office/libreoffice/session/ProcessGroup.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <span>
#include <system_error>

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
    {"Setup/Office", "MigrationCompleted", "true"},
    {"Office.Recovery/AutoSave", "Enabled", "false"},
    // Writer shows bookmarks, which mark places, only while it shows marks at all.
    {"Office.Writer/Content/NonprintingCharacter", "MetaCharacters", "true"},
    {"Office.Writer/Content/NonprintingCharacter", "Bookmarks", "true"},
    {"Office.Writer/Content/NonprintingCharacter", "ParagraphEnd", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "OptionalHyphen", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Space", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "ProtectedSpace", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Tab", "false"},
    {"Office.Writer/Content/NonprintingCharacter", "Break", "false"},
    {"Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
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

void disableCommands(std::ostream& file) {
    for (const char* const command : kDisabledCommands) {
        file << R"(<item oor:path="/org.openoffice.Office.Commands/Execute/Disabled"><node oor:name=")"
             << command << R"(" oor:op="replace"><prop oor:name="Command"><value>)" << command
             << "</value></prop></node></item>\n";
    }
}

void writeSettings(std::ostream& file, OfficeMode mode) {
    file << R"(<?xml version="1.0" encoding="UTF-8"?>)"
            "\n"
         << R"(<oor:items xmlns:oor="http://openoffice.org/2001/registry">)"
            "\n";
    write(file, kQuiet);
    if (mode == OfficeMode::Shown) {
        write(file, kShown);
        disableCommands(file);
    }
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

void makeOfficeProfile(const std::string& folder, OfficeMode mode) {
    const std::string user = joinPath(folder, "user");
    std::error_code error;
    std::filesystem::create_directories(user, error);
    std::ofstream file(joinPath(user, "registrymodifications.xcu"));
    writeSettings(file, mode);
    if (!file) {
        raiseNotStarted("the folder for its profile '" + folder + "' cannot be written");
    }
}

}  // namespace mergeloom::libreoffice
