#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/calls/CallMethods.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/libreoffice/session/LibreOfficeSession.h"

#include <memory>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace mergeloom::libreoffice {

class DocumentLine;
using DocumentLinePtr = std::shared_ptr<DocumentLine>;

/// Makes the stand-in for an object inside LibreOffice's process; see StandIns.h.
template <class Interface>
std::shared_ptr<Interface> standIn(const DocumentLinePtr& line, std::int64_t number);

/// Sends calls to the objects of one document inside LibreOffice's process. Raises the errors of
/// OfficeConnection::call and those of the called methods.
class DocumentLine : public std::enable_shared_from_this<DocumentLine> {
  public:
    /// The file store must outlive the line.
    DocumentLine(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                 const DocumentReference& document);

    [[nodiscard]] LibreOfficeSession& session() { return *session_; }
    [[nodiscard]] FileStore& files() { return files_; }

    /// Calls a listed method with its arguments and returns its result.
    template <class Interface, auto kMember, class... Arguments>
    auto call(std::int64_t object, const Arguments&... arguments) {
        using Called = Method<Interface, kMember>;
        CallWriter request;
        request.number(numberOfMethod<Called>());
        request.number(object);
        request.number(++last_);
        (put(request, arguments), ...);
        pending_.append(request);
        return result<kIsIn<Called, PatientMethods>>(kMember, last_);
    }

    /// Calls a method of the document itself.
    template <auto kMember, class... Arguments>
    auto callEditor(const Arguments&... arguments) {
        return call<DocumentEditor, kMember>(editor_, arguments...);
    }

    /// Releases the object of a stand-in together with the next call.
    void release(std::int64_t object);
    /// Sends each later call at once, since all calls to a closed document fail.
    void close() { isOpen_ = false; }

    /// Registers the number of a range until unlink() is called.
    void link(const word::Range& range, std::int64_t number) { ranges_[&range] = number; }
    void unlink(const word::Range& range) { ranges_.erase(&range); }

  private:
    /// Sends the pending calls and returns the answer to the last one.
    CallReader ask();

    static void put(CallWriter& request, const auto& value) { putValue(request, value); }
    /// Raises kCommandFailed for a range of another document.
    void put(CallWriter& request, const word::Range& range) const;

    template <bool kIsPatient, class Result, class Owner, class... Parameters>
    Result result(Result (Owner::*)(Parameters...), std::int64_t number) {
        const bool isPatient = kIsPatient && isOpen_;
        if constexpr (ObjectReference<Result>) {
            if (!isPatient && ask().number() == 0) return nullptr;
            return standIn<typename Result::element_type>(shared_from_this(), number);
        } else if constexpr (std::is_void_v<Result>) {
            if (!isPatient) ask();
        } else {
            CallReader answer = ask();
            return takeValue<Result>(answer);
        }
    }

    std::shared_ptr<LibreOfficeSession> session_;
    FileStore& files_;
    std::int64_t editor_;
    std::int64_t last_;   ///< the number of the newest object; each document has its own range of numbers
    CallWriter pending_;  ///< calls that are sent with the next one
    bool isOpen_ = true;
    std::unordered_map<const word::Range*, std::int64_t> ranges_;
};

}  // namespace mergeloom::libreoffice
