#include "office/com/automation/AutomationSession.h"

#include "base/AutomationError.h"
#include "base/windows/MessageBoxes.h"
#include "base/windows/WindowsText.h"
#include "office/com/automation/CallCancellation.h"
#include "office/com/automation/CallLimit.h"
#include "office/com/automation/Failures.h"
#include "office/com/automation/OfficeProcess.h"
#include "office/com/automation/Variant.h"

#include <objbase.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <optional>
#include <utility>

namespace mergeloom::com {

namespace {

/// The language of names and of numbers in texts: the one that an office has in any case.
constexpr LCID kEnglish = 0x0409;
/// The number of items that an enumerator returns with each call.
constexpr ULONG kBatch = 64;

std::string shownCall(const std::string& called, CallKind kind, const Arguments& arguments) {
    if (kind == CallKind::Put) return called + " = " + shownValue(arguments.front().value);
    if (arguments.empty()) return called;
    std::string shown;
    for (const Argument& argument : arguments) {
        shown += shown.empty() ? "(" : ", ";
        if (argument.name != nullptr) shown += std::string(argument.name) + ":=";
        shown += shownValue(argument.value);
    }
    return called + shown + ")";
}

/// The arguments of a call in the form of automation: the last one first, those with names before the others.
class PassedArguments {
  public:
    PassedArguments(const Arguments& arguments, const std::vector<long>& ids, CallKind kind) {
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            values_.emplace_back(argument->value);
            plain_.push_back(*values_.back().get());
        }
        for (std::size_t name = ids.size(); name > 1; --name)
            names_.push_back(ids[name - 1]);
        if (kind == CallKind::Put) names_.push_back(DISPID_PROPERTYPUT);
        parameters_ = {plain_.data(), names_.data(), static_cast<UINT>(plain_.size()),
                       static_cast<UINT>(names_.size())};
    }

    [[nodiscard]] DISPPARAMS* get() { return &parameters_; }

  private:
    std::deque<Variant> values_;
    std::vector<VARIANT> plain_;
    std::vector<DISPID> names_;
    DISPPARAMS parameters_{};
};

WORD flagsOf(CallKind kind) {
    // The office decides if a member is a property or a method.
    return kind == CallKind::Put ? DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYGET | DISPATCH_METHOD;
}

}  // namespace

AutomationSession::AutomationSession(std::string officeName, Patience patience, CallTracePtr trace)
    : officeName_(std::move(officeName)), patience_(patience), trace_(std::move(trace)) {
    const HRESULT result = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(result)) {
        throw AutomationError(kNotAvailable,
                              officeName_ + " cannot be called by this program: " + meaningOf(result) + ".");
    }
    cancellation_ = allowCancellation();
}

AutomationSession::~AutomationSession() {
    limit_.reset();
    known_.clear();
    cancellation_.reset();
    ::CoUninitialize();
}

DispatchPtr AutomationSession::start(const std::string& programIdentifier) {
    CLSID identifier{};
    HRESULT result = ::CLSIDFromProgID(windows::wideText(programIdentifier).c_str(), &identifier);
    void* application = nullptr;
    if (SUCCEEDED(result)) {
        process_ = std::make_unique<OfficeProcess>(identifier);
        limit_ = std::make_unique<CallLimit>(
            CallLimit::Duration(patience_.callMilliseconds),
            CallLimit::Steps{[process = process_.get()] { process->end(); }, [this] { endRun(); }});
        result = ask([&] {
            return ::CoCreateInstance(identifier, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &application);
        });
    }
    note("start " + programIdentifier);
    if (SUCCEEDED(result)) {
        process_->find();
        return adopt(static_cast<IDispatch*>(application));
    }
    const bool isMissing = result == REGDB_E_CLASSNOTREG || result == CO_E_CLASSSTRING;
    throw AutomationError(kNotAvailable, isMissing
                                             ? "The office 'com' is not available: no " + officeName_ +
                                                   " is installed (there is no class '" + programIdentifier +
                                                   "'). Install Microsoft " + officeName_ +
                                                   " or choose the office 'embedded'."
                                             : officeName_ + " could not be started: " + meaningOf(result) +
                                                   ". Choose the office 'embedded' otherwise.");
}

std::string AutomationSession::silence() const {
    const std::string seconds = std::to_string(limit_->longest() / std::chrono::seconds(1));
    const std::string program = process_->program().empty() ? officeName_ : process_->program();
    return officeName_ + " has not answered for " + seconds + " seconds; a dialog may be open in it. " +
           (process_->wasEnded() ? "It was ended."
                                 : "End " + program + " in the task manager if it still runs.");
}

void AutomationSession::endRun() const {
    if (windows::areErrorsUnseen()) {
        windows::MessageBoxes().show({silence(), MessageIcon::Critical, MessageButtons::Ok});
    } else {
        std::fputs((silence() + "\n").c_str(), stderr);
        std::fflush(stderr);
    }
    ::TerminateProcess(::GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

void AutomationSession::releaseOffice() {
    if (process_) process_->release();
}

void AutomationSession::endByForce() {
    if (process_) process_->end();
}

void AutomationSession::note(const std::string& line) {
    if (trace_ != nullptr) trace_->write(line);
}

void AutomationSession::noteChange() {
    ++changes_;
    known_.clear();
}

Value AutomationSession::invoke(const DispatchPtr& object, const char* className, const char* member,
                                CallKind kind, const Arguments& arguments) {
    if (kind != CallKind::Read) {
        // A call that fails may have changed something, too.
        noteChange();
        return traced(*object, className, member, kind, arguments);
    }
    if (!arguments.empty()) return traced(*object, className, member, kind, arguments);
    const std::pair key(object.get(), std::string(member));
    if (const auto known = known_.find(key); known != known_.end()) return known->second.value;
    Value read = traced(*object, className, member, kind, arguments);
    known_.emplace(key, KnownResult{object, read});
    return read;
}

Value AutomationSession::traced(IDispatch& object, const char* className, const char* member, CallKind kind,
                                const Arguments& arguments) {
    const std::string called = std::string(className) + "." + member;
    const auto shown = [&] { return trace_ == nullptr ? "" : shownCall(called, kind, arguments) + " -> "; };
    try {
        const Ids& ids = idsOf(object, className, member, arguments);
        Value result = invokeIds(object, called, ids, kind, arguments);
        note(shown() + shownValue(result));
        return result;
    } catch (const AutomationError& error) {
        note(shown() + "error " + std::to_string(error.number()) + " " + shownValue(error.description()));
        throw;
    }
}

Value AutomationSession::invokeIds(IDispatch& object, const std::string& called, const Ids& ids,
                                   CallKind kind, const Arguments& arguments) {
    Variant answer;
    std::optional<RaisedError> raised;
    const HRESULT result = ask([&] {
        PassedArguments passed(arguments, ids, kind);
        UINT wrongArgument = 0;
        raised.emplace();
        const HRESULT returned = object.Invoke(ids.front(), IID_NULL, kEnglish, flagsOf(kind), passed.get(),
                                               answer.get(), raised->get(), &wrongArgument);
        const bool isBusyError = returned == DISP_E_EXCEPTION && isBusy(raised->result());
        return isBusyError ? raised->result() : returned;
    });
    if (result == DISP_E_EXCEPTION) throw raised->error(called);
    if (FAILED(result)) raise(result, called);
    return valueOf(*answer.get());
}

AutomationSession::Result AutomationSession::ask(const std::function<Result()>& call) {
    for (int attempt = 1;; ++attempt) {
        if (limit_ && limit_->isExceeded()) return RPC_E_CALL_CANCELED;
        const Result result = [&] {
            const CallLimit::Call timed(limit_.get());
            return call();
        }();
        if (!isBusy(result) || attempt >= patience_.attempts) return result;
        pause();
    }
}

std::vector<DispatchPtr> AutomationSession::enumerate(IDispatch& collection, const char* className) {
    const std::string called = std::string(className) + "._NewEnum";
    Variant answer;
    DISPPARAMS none{};
    HRESULT result = ask([&] {
        return collection.Invoke(DISPID_NEWENUM, IID_NULL, kEnglish, flagsOf(CallKind::Read), &none,
                                 answer.get(), nullptr, nullptr);
    });
    if (FAILED(result)) raise(result, called);
    void* found = nullptr;
    const bool isObject = answer.get()->vt == VT_UNKNOWN || answer.get()->vt == VT_DISPATCH;
    if (!isObject) raise(E_NOINTERFACE, called);
    result = ask([&] { return answer.get()->punkVal->QueryInterface(IID_IEnumVARIANT, &found); });
    if (FAILED(result)) raise(result, called);
    const std::unique_ptr<IEnumVARIANT, void (*)(IEnumVARIANT*)> items(
        static_cast<IEnumVARIANT*>(found), [](IEnumVARIANT* held) { held->Release(); });

    std::vector<DispatchPtr> objects;
    for (;;) {
        VARIANT batch[kBatch]{};
        ULONG count = 0;
        result = ask([&] { return items->Next(kBatch, batch, &count); });
        if (FAILED(result)) raise(result, called);
        for (ULONG item = 0; item < count; ++item) {
            objects.push_back(valueOf(batch[item]).object());
            ::VariantClear(&batch[item]);
        }
        if (count < kBatch) break;
    }
    note(called + " -> " + std::to_string(objects.size()) + " objects");
    return objects;
}

const AutomationSession::Ids& AutomationSession::idsOf(IDispatch& object, const char* className,
                                                       const char* member, const Arguments& arguments) {
    std::vector<const char*> names{member};
    for (const Argument& argument : arguments) {
        if (argument.name != nullptr) names.push_back(argument.name);
    }
    std::string key = className;
    for (const char* const name : names)
        key += std::string(".") + name;
    if (const auto known = ids_.find(key); known != ids_.end()) return known->second;

    std::vector<std::wstring> wide;
    std::vector<OLECHAR*> pointers;
    for (const char* const name : names)
        wide.push_back(windows::wideText(name));
    for (std::wstring& name : wide)
        pointers.push_back(name.data());
    Ids ids(names.size());
    const HRESULT result = ask([&] {
        return object.GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()), kEnglish,
                                    ids.data());
    });
    if (FAILED(result)) raise(result, key);
    return ids_.emplace(std::move(key), std::move(ids)).first->second;
}

void AutomationSession::raise(Result result, const std::string& called) {
    if (limit_ && limit_->isExceeded()) throw AutomationError(kNotAvailable, silence());
    if (isBusy(result)) {
        throw AutomationError(kNotAvailable, officeName_ +
                                                 " is busy and takes no calls. It may show a dialog: answer "
                                                 "it, or end " +
                                                 officeName_ + ", and try again.");
    }
    if (isGone(result)) throw AutomationError(kNotAvailable, officeName_ + " has ended while it was used.");
    throw AutomationError(numberOf(result),
                          officeName_ + " refused '" + called + "': " + meaningOf(result) + ".");
}

void AutomationSession::pause() const {
    // Calls of the office to this process arrive as messages of this thread.
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(patience_.pauseMilliseconds),
                                QS_ALLINPUT);
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0)
        ::DispatchMessageW(&message);
}

}  // namespace mergeloom::com
