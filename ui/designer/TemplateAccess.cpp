#include "ui/designer/TemplateAccess.h"

#include "app/MergeloomErrorCodes.h"
#include "base/Paths.h"

namespace mergeloom {

namespace {

/// Returns a line about the owner of the lock; empty when nothing is known about it.
std::string lineAbout(const LockOwner& owner) {
    if (owner.name.empty()) return {};
    std::string line = "It is open for " + owner.name;
    if (!owner.host.empty()) line += " on " + owner.host;
    if (!owner.since.empty()) line += " since " + owner.since;
    return line + ".\r\n";
}

}  // namespace

std::optional<FileAccess> askForAccess(Messages& messages, TemplateFiles& files, const std::string& path) {
    const std::string sentence = GetMappingErrorText(kTemplateAlreadyOpened, {path});
    const std::string line = lineAbout(files.lockOwner(path).value_or(LockOwner{}));
    const Message question{
        sentence + "\r\n\r\n" + line + "Do you want to open it for reading only? No opens a copy of it.",
        MessageIcon::Exclamation, MessageButtons::YesNoCancel};
    switch (messages.show(question)) {
        case MessageAnswer::Yes:
            return FileAccess::ReadOnly;
        case MessageAnswer::No:
            return FileAccess::Copy;
        default:
            return {};
    }
}

std::string captionOf(const std::string& path, FileAccess access) {
    std::string name = fileNameOnly(path);
    switch (access) {
        case FileAccess::Edit:
            return name;
        case FileAccess::ReadOnly:
            return name + " (read-only)";
        case FileAccess::Copy:
            return name + " (copy)";
    }
    return name;
}

}  // namespace mergeloom
