#include "droppers/DropReports.h"

#include <exception>

namespace mergeloom {

namespace {

/// The number of an error that no automation interface raised.
constexpr ErrorNumber kInternalError = 51;

}  // namespace

void DropReports::report(const ErrorReport& report) {
    failed_ = true;
    errors_.report(report);
}

bool DropReports::refuse(const std::string& text, MessageIcon icon) {
    messages_.show({text, icon, MessageButtons::Ok});
    return false;
}

bool DropReports::ask(const std::string& question) {
    const Message message{question, MessageIcon::Question, MessageButtons::YesNo};
    return messages_.show(message) == MessageAnswer::Yes;
}

bool DropReports::trap(const Procedure& procedure, const std::function<bool()>& body,
                       const std::function<std::string()>& comment) {
    ErrorReport failure;
    try {
        return body();
    } catch (const AutomationError& error) {
        failure.number = error.number();
        failure.description = error.description();
    } catch (const std::exception& error) {
        failure.number = kInternalError;
        failure.description = error.what();
    }
    if (comment) failure.comment = comment();
    failure.module = procedure.module;
    failure.procedure = procedure.name;
    report(failure);
    return false;
}

}  // namespace mergeloom
