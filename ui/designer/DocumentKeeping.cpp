#include "ui/designer/DocumentKeeping.h"

#include "base/Paths.h"

#include <vector>

namespace mergeloom {

namespace {

/// Returns the document's name at the beginning of a sentence.
std::string subjectOf(const KeptCopy& copy) {
    return copy.original.empty() ? "A new template" : "“" + fileNameOnly(copy.original) + "”";
}

}  // namespace

void DocumentKeeping::keep(const std::string& original) {
    DocumentHost& host = access_.host();
    if (host.hasChangesToKeep()) host.keepCopy(copies_.pathFor(original, office_.texts().keptExtension));
}

std::optional<KeptCopy> DocumentKeeping::offer(const std::string& file) {
    if (const std::optional<KeptCopy> own = copies_.own(); own && isWanted(*own)) return own;
    for (const KeptCopy& copy : copies_.left(office_.texts().keptExtension)) {
        const bool isAskedFor = file.empty() || copy.original == file;
        if (isAskedFor && copies_.adopt(copy) && isWanted(copy)) return copy;
    }
    return {};
}

bool DocumentKeeping::isWanted(const KeptCopy& copy) {
    const Message question{subjectOf(copy) + " was not saved when it was last open. A copy of " + copy.time +
                               " was kept.\r\n\r\nDo you want to open the copy? No deletes it.",
                           MessageIcon::Question, MessageButtons::YesNoCancel};
    switch (messages_.show(question)) {
        case MessageAnswer::Yes:
            return true;
        case MessageAnswer::No:
            copies_.removeOwn();
            return false;
        default:
            copies_.release();
            return false;
    }
}

}  // namespace mergeloom
