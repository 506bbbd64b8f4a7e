#include "office/com/automation/Variant.h"

#include "base/AutomationError.h"
#include "base/windows/WindowsText.h"
#include "office/com/automation/ErrorNumbers.h"

#include <limits>

namespace mergeloom::com {

namespace {

/// Sets a VARIANT to each kind of content.
struct Setter {
    VARIANT& variant;

    void operator()(std::monostate) const {
        variant.vt = VT_ERROR;
        variant.scode = DISP_E_PARAMNOTFOUND;
    }
    void operator()(Mixed) const { variant.vt = VT_NULL; }
    void operator()(bool truth) const {
        variant.vt = VT_BOOL;
        variant.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int64_t number) const {
        using Limits = std::numeric_limits<LONG>;
        if (number < Limits::min() || number > Limits::max()) return (*this)(static_cast<double>(number));
        variant.vt = VT_I4;
        variant.lVal = static_cast<LONG>(number);
    }
    void operator()(double number) const {
        variant.vt = VT_R8;
        variant.dblVal = number;
    }
    void operator()(const std::string& text) const {
        variant.vt = VT_BSTR;
        variant.bstrVal = makeText(text);
    }
    void operator()(const DispatchPtr& object) const {
        variant.vt = VT_DISPATCH;
        variant.pdispVal = object.get();
        if (object) object->AddRef();
    }
};

/// Returns an object's interface for late-bound calls, which an object of another kind may have too.
Value objectOf(IUnknown* unknown) {
    if (unknown == nullptr) return DispatchPtr();
    void* dispatch = nullptr;
    if (FAILED(unknown->QueryInterface(IID_IDispatch, &dispatch))) {
        throw AutomationError(kTypeMismatch, "An object takes no late-bound calls.");
    }
    return adopt(static_cast<IDispatch*>(dispatch));
}

Value changedTo(VARTYPE type, const VARIANT& variant) {
    Variant changed;
    if (FAILED(::VariantChangeType(changed.get(), const_cast<VARIANT*>(&variant), 0, type))) {
        throw AutomationError(kTypeMismatch, "A value has a type that is not understood.");
    }
    return valueOf(*changed.get());
}

}  // namespace

Variant::Variant(const Value& value) : Variant() {
    value.visit(Setter{variant_});
}

VARIANT Variant::release() {
    const VARIANT content = variant_;
    ::VariantInit(&variant_);
    return content;
}

Value valueOf(const VARIANT& variant) {
    if ((variant.vt & VT_BYREF) != 0) {
        Variant copy;
        if (FAILED(::VariantCopyInd(copy.get(), const_cast<VARIANT*>(&variant)))) return {};
        return valueOf(*copy.get());
    }
    switch (variant.vt) {
        case VT_EMPTY:
        case VT_ERROR:
            return {};
        case VT_NULL:
            return Mixed();
        case VT_BOOL:
            return variant.boolVal != VARIANT_FALSE;
        case VT_I4:
            return std::int64_t{variant.lVal};
        case VT_R8:
            return variant.dblVal;
        case VT_BSTR:
            return textOf(variant.bstrVal);
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return objectOf(variant.punkVal);
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_UI4:
        case VT_I8:
        case VT_UI8:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_CY:
        case VT_DECIMAL:
        case VT_DATE:
            return changedTo(VT_R8, variant);
        default:
            throw AutomationError(kTypeMismatch, "A value has a type that is not understood.");
    }
}

DispatchPtr adopt(IDispatch* object) {
    return {object, [](IDispatch* held) {
                if (held != nullptr) held->Release();
            }};
}

DispatchPtr share(IDispatch* object) {
    if (object != nullptr) object->AddRef();
    return adopt(object);
}

BSTR makeText(const std::string& text) {
    const std::wstring wide = windows::wideText(text);
    return ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

std::string textOf(BSTR text) {
    return text == nullptr ? std::string() : windows::utf8Text({text, ::SysStringLen(text)});
}

}  // namespace mergeloom::com
