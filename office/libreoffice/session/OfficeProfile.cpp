#include "office/libreoffice/session/OfficeProfile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <filesystem>
#include <fstream>
#include <span>

namespace mergeloom::libreoffice {

namespace {

struct Setting {
    const char* group;  ///< behind "/org.openoffice."
    const char* name;
    const char* value;
};

constexpr Setting kQuiet[] = {
    {"Office.Common/Misc", "UseLocking", "false"},
    {"Office.Common/Misc", "UseDocumentSystemFileLocking", "false"},
    {"Office.Common/Misc", "UseDocumentOOoLockFile", "false"},
};

/// What comes up before a new user, and what is kept of a document besides the document.
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
    {"Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
};

void write(std::ostream& file, std::span<const Setting> settings) {
    for (const Setting& setting : settings) {
        file << R"(<item oor:path="/org.openoffice.)" << setting.group << R"("><prop oor:name=")"
             << setting.name << R"(" oor:op="fuse"><value>)" << setting.value << "</value></prop></item>\n";
    }
}

void writeSettings(std::ostream& file, OfficeMode mode) {
    file << R"(<?xml version="1.0" encoding="UTF-8"?>)"
            "\n"
         << R"(<oor:items xmlns:oor="http://openoffice.org/2001/registry">)"
            "\n";
    write(file, kQuiet);
    if (mode == OfficeMode::Shown) write(file, kShown);
    file << "</oor:items>\n" << std::flush;
}

}  // namespace

void makeOfficeProfile(const std::string& folder, OfficeMode mode) {
    const std::string user = joinPath(folder, "user");
    std::error_code error;
    std::filesystem::create_directories(user, error);
    std::ofstream file(joinPath(user, "registrymodifications.xcu"));
    writeSettings(file, mode);
    if (!file) {
        throw AutomationError(kNotAvailable,
                              "LibreOffice could not be started: the folder for its profile '" + folder +
                                  "' cannot be written.");
    }
}

}  // namespace mergeloom::libreoffice
