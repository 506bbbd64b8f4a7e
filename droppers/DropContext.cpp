#include "droppers/DropContext.h"

namespace mergeloom {

void DropReports::report(const ErrorReport& report) {
    failed_ = true;
    errors_.report(report);
}

bool DropReports::refuse(const std::string& text, MessageIcon icon) {
    hasTold_ = true;
    messages_.show({text, icon, MessageButtons::Ok});
    return false;
}

void DropReports::tell(const std::string& text) {
    messages_.show({text, MessageIcon::Information, MessageButtons::Ok});
}

bool DropReports::ask(const std::string& question) {
    const Message message{question, MessageIcon::Question, MessageButtons::YesNo};
    return messages_.show(message) == MessageAnswer::Yes;
}

bool DropReports::confirm(const std::string& announcement) {
    const Message message{announcement, MessageIcon::Exclamation, MessageButtons::OkCancel};
    return messages_.show(message) == MessageAnswer::Ok;
}

}  // namespace mergeloom
