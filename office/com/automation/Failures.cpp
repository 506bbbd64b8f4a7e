#include "office/com/automation/Failures.h"

#include "office/com/automation/ErrorNumbers.h"
#include "office/com/automation/Variant.h"

#include <iterator>

namespace mergeloom::com {

namespace {

/// Excel's result for a call while a cell is edited (VBA_E_IGNORE), which no header names.
constexpr auto kBeingEdited = static_cast<HRESULT>(0x800AC472);
/// The facility of errors that have a number of Visual Basic's.
constexpr unsigned kControlFacility = 10;

struct KnownResult {
    HRESULT result;
    ErrorNumber number;
    const char* meaning;
};

constexpr KnownResult kKnown[] = {
    {DISP_E_UNKNOWNNAME, kMemberUnknown, "this version does not have it"},
    {DISP_E_MEMBERNOTFOUND, kMemberUnknown, "this version does not have it"},
    {DISP_E_BADINDEX, kSubscriptOutOfRange, "there is no such item"},
    {DISP_E_TYPEMISMATCH, kTypeMismatch, "an argument has the wrong type"},
    {DISP_E_OVERFLOW, kTypeMismatch, "an argument is out of range"},
    {DISP_E_NONAMEDARGS, kNamedArgumentUnknown, "it takes no named arguments"},
    {DISP_E_PARAMNOTFOUND, kNamedArgumentUnknown, "this version does not have one of its arguments"},
    {DISP_E_PARAMNOTOPTIONAL, kArgumentMissing, "an argument is missing"},
    {DISP_E_BADPARAMCOUNT, kWrongArgumentCount, "it takes another number of arguments"},
    {RPC_E_DISCONNECTED, kObjectDeleted, "the object is gone"},
    {CO_E_OBJNOTCONNECTED, kObjectDeleted, "the object is gone"},
    {E_OUTOFMEMORY, kCommandFailed, "there is not enough memory"},
};

const KnownResult* find(HRESULT result) {
    for (const KnownResult& known : kKnown) {
        if (known.result == result) return &known;
    }
    return nullptr;
}

}  // namespace

bool isBusy(HRESULT result) {
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER || result == kBeingEdited;
}

bool isGone(HRESULT result) {
    return result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED_DNE) || result == RPC_E_SERVER_DIED ||
           result == RPC_E_SERVER_DIED_DNE;
}

ErrorNumber numberOf(HRESULT result) {
    if (const KnownResult* const known = find(result)) return known->number;
    const auto bits = static_cast<unsigned long>(result);
    return HRESULT_FACILITY(bits) == kControlFacility ? HRESULT_CODE(bits) : bits;
}

ErrorNumber numberOf(const EXCEPINFO& error) {
    return error.wCode != 0 ? error.wCode : numberOf(error.scode);
}

std::string meaningOf(HRESULT result) {
    const KnownResult* const known = find(result);
    return known != nullptr ? known->meaning : "error " + std::to_string(numberOf(result));
}

RaisedError::~RaisedError() {
    ::SysFreeString(error_.bstrSource);
    ::SysFreeString(error_.bstrDescription);
    ::SysFreeString(error_.bstrHelpFile);
}

HRESULT RaisedError::result() const {
    return error_.wCode != 0 ? DISP_E_EXCEPTION : error_.scode;
}

AutomationError RaisedError::error(const std::string& called) {
    if (error_.pfnDeferredFillIn != nullptr) error_.pfnDeferredFillIn(&error_);
    const std::string description = textOf(error_.bstrDescription);
    const std::string nameless = called + " failed: " + meaningOf(error_.scode) + ".";
    return {numberOf(error_), description.empty() ? nameless : description};
}

}  // namespace mergeloom::com
