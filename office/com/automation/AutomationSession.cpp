#include "office/com/automation/AutomationSession.h"

#include "base/AutomationError.h"
#include "base/windows/WindowsText.h"
#include "office/com/automation/Failures.h"
#include "office/com/automation/Variant.h"

#include <objbase.h>

#include <deque>
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
    if (SUCCEEDED(result)) return;
    throw AutomationError(kNotAvailable,
                          officeName_ + " cannot be called by this program: " + meaningOf(result) + ".");
}

AutomationSession::~AutomationSession() {
    ::CoUninitialize();
}

DispatchPtr AutomationSession::start(const std::string& programIdentifier) {
    CLSID identifier{};
    HRESULT result = ::CLSIDFromProgID(windows::wideText(programIdentifier).c_str(), &identifier);
    void* application = nullptr;
    if (SUCCEEDED(result)) {
        result = ::CoCreateInstance(identifier, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &application);
    }
    note("start " + programIdentifier);
    if (SUCCEEDED(result)) return adopt(static_cast<IDispatch*>(application));
    const bool isMissing = result == REGDB_E_CLASSNOTREG || result == CO_E_CLASSSTRING;
    throw AutomationError(kNotAvailable, isMissing
                                             ? "The office 'com' is not available: no " + officeName_ +
                                                   " is installed (there is no class '" + programIdentifier +
                                                   "'). Install Microsoft " + officeName_ +
                                                   " or choose the office 'embedded'."
                                             : officeName_ + " could not be started: " + meaningOf(result) +
                                                   ". Choose the office 'embedded' otherwise.");
}

void AutomationSession::note(const std::string& line) {
    if (trace_ != nullptr) trace_->write(line);
}

Value AutomationSession::invoke(IDispatch& object, const char* className, const char* member, CallKind kind,
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
    for (int attempt = 1;; ++attempt) {
        if (std::optional<Value> result = invokeOnce(object, called, ids, kind, arguments)) return *result;
        if (attempt >= patience_.attempts) raise(RPC_E_CALL_REJECTED, called);
        pause();
    }
}

std::vector<DispatchPtr> AutomationSession::enumerate(IDispatch& collection, const char* className) {
    const std::string called = std::string(className) + "._NewEnum";
    Variant answer;
    DISPPARAMS none{};
    HRESULT result = collection.Invoke(DISPID_NEWENUM, IID_NULL, kEnglish, flagsOf(CallKind::Get), &none,
                                       answer.get(), nullptr, nullptr);
    if (FAILED(result)) raise(result, called);
    void* found = nullptr;
    const bool isObject = answer.get()->vt == VT_UNKNOWN || answer.get()->vt == VT_DISPATCH;
    result = isObject ? answer.get()->punkVal->QueryInterface(IID_IEnumVARIANT, &found) : E_NOINTERFACE;
    if (FAILED(result)) raise(result, called);
    const std::unique_ptr<IEnumVARIANT, void (*)(IEnumVARIANT*)> items(
        static_cast<IEnumVARIANT*>(found), [](IEnumVARIANT* held) { held->Release(); });

    std::vector<DispatchPtr> objects;
    for (;;) {
        VARIANT batch[kBatch]{};
        ULONG count = 0;
        result = items->Next(kBatch, batch, &count);
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
    for (int attempt = 1;; ++attempt) {
        const HRESULT result = object.GetIDsOfNames(IID_NULL, pointers.data(),
                                                    static_cast<UINT>(pointers.size()), kEnglish, ids.data());
        if (SUCCEEDED(result)) return ids_.emplace(std::move(key), std::move(ids)).first->second;
        if (!isBusy(result) || attempt >= patience_.attempts) raise(result, key);
        pause();
    }
}

std::optional<Value> AutomationSession::invokeOnce(IDispatch& object, const std::string& called,
                                                   const Ids& ids, CallKind kind,
                                                   const Arguments& arguments) {
    PassedArguments passed(arguments, ids, kind);
    Variant answer;
    RaisedError raised;
    UINT wrongArgument = 0;
    const HRESULT result = object.Invoke(ids.front(), IID_NULL, kEnglish, flagsOf(kind), passed.get(),
                                         answer.get(), raised.get(), &wrongArgument);
    if (isBusy(result) || (result == DISP_E_EXCEPTION && isBusy(raised.result()))) return {};
    if (result == DISP_E_EXCEPTION) throw raised.error(called);
    if (FAILED(result)) raise(result, called);
    return valueOf(*answer.get());
}

void AutomationSession::raise(long result, const std::string& called) {
    if (isBusy(result)) {
        throw AutomationError(kNotAvailable, officeName_ +
                                                 " is busy and takes no calls. It may show a dialog: answer "
                                                 "it, or end " +
                                                 officeName_ + ", and try again.");
    }
    if (isGone(result)) throw AutomationError(kNotAvailable, officeName_ + " has ended while it was used.");
    throw AutomationError(
        numberOf(static_cast<HRESULT>(result)),
        officeName_ + " refused '" + called + "': " + meaningOf(static_cast<HRESULT>(result)) + ".");
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
