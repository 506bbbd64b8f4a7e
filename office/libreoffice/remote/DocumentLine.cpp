#include "office/libreoffice/remote/DocumentLine.h"

#include "base/AutomationError.h"

namespace mergeloom::libreoffice {

namespace {

constexpr int kBitsOfObjects = 40;

}  // namespace

DocumentLine::DocumentLine(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                           const DocumentReference& document)
    : session_(std::move(session)),
      files_(files),
      editor_(session_->connection().handInside(document)),
      last_(editor_ << kBitsOfObjects) {}

void DocumentLine::release(std::int64_t object) {
    pending_.number(kRelease);
    pending_.number(object);
}

CallReader DocumentLine::ask() {
    const CallWriter request = std::exchange(pending_, {});
    return checkedAnswer(session_->connection().askInside(request.bytes()));
}

void DocumentLine::put(CallWriter& request, const word::Range& range) const {
    const auto found = ranges_.find(&range);
    if (found == ranges_.end())
        throw AutomationError(kCommandFailed, "The range is one of another document.");
    request.number(found->second);
}

}  // namespace mergeloom::libreoffice
