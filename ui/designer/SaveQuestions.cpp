#include "ui/designer/SaveQuestions.h"

#include "base/Paths.h"
#include "base/Text.h"

namespace mergeloom {

namespace {

/// Returns the name that is proposed for a copy of the file.
std::string copyNameOf(const std::string& path) {
    const std::string ending = "." + extension(path);
    const std::string name = fileNameOnly(path);
    return name.substr(0, name.size() - ending.size()) + " (copy)" + ending;
}

}  // namespace

/// Asks before any file is written.
bool SaveQuestions::acceptsLoss(const model::LossySave& loss, const std::string& path,
                                const std::string& folder) {
    const bool hasFormer = files_.exists(path);
    const std::string kept = hasFormer ? "keep a copy of the present file beside it and " : "";
    const Message question{
        loss.description() + "\r\n\r\nYes: " + kept +
            "save LibreOffice's version.\r\nNo: save LibreOffice's version as a copy under "
            "another name.\r\nCancel: write nothing.",
        MessageIcon::Exclamation, MessageButtons::YesNoCancel, DefaultButton::Cancel};
    const MessageAnswer answer = messages_.show(question);
    if (answer == MessageAnswer::No) saveElsewhere(loss.bytes(), path, folder);
    if (answer != MessageAnswer::Yes) return false;
    if (hasFormer) (void)files_.keepBackup(path);
    return true;
}

bool SaveQuestions::acceptsUnprotected(const std::string& path) {
    const Message question{"The file “" + fileNameOnly(path) +
                               "” will not be protected by the password of the template, since LibreOffice "
                               "protects no files of this format.\r\n\r\nDo you want to write it without a "
                               "password? Everybody who has the file can read it then.",
                           MessageIcon::Exclamation, MessageButtons::OkCancel, DefaultButton::Cancel};
    return messages_.show(question) == MessageAnswer::Ok;
}

void SaveQuestions::offerCopy(const model::DifferingCopy& copy, const std::string& path,
                              const std::string& folder) {
    const Message question{copy.description() + "\r\nDo you want to save this as a copy under another name?",
                           MessageIcon::Exclamation, MessageButtons::YesNo};
    if (messages_.show(question) == MessageAnswer::Yes) saveElsewhere(copy.bytes(), path, folder);
}

/// Gives the copy the extension of the path, which determines the format of the bytes.
void SaveQuestions::saveElsewhere(const std::string& bytes, const std::string& path,
                                  const std::string& folder) {
    std::string target = dialogs_.askToSave(office_, folder, copyNameOf(path));
    if (target.empty()) return;
    if (!equalsIgnoringCase(extension(target), extension(path))) target += "." + extension(path);
    if (equalsIgnoringCase(target, path)) {
        (void)messages_.show({"The copy was not saved: " + path + " is the name of the template.",
                              MessageIcon::Exclamation, MessageButtons::Ok});
        return;
    }
    files_.write(target, bytes);
}

}  // namespace mergeloom
