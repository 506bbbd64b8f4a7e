#pragma once

#include "office/com/automation/Value.h"

#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <string>

namespace mergeloom::com {

/// A VARIANT that is cleared at its end.
class Variant {
  public:
    Variant() { ::VariantInit(&variant_); }
    /// An empty value becomes an optional argument that is left out.
    explicit Variant(const Value& value);
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { ::VariantClear(&variant_); }

    [[nodiscard]] VARIANT* get() { return &variant_; }
    /// Gives the content away; this variant is empty then.
    [[nodiscard]] VARIANT release();

  private:
    VARIANT variant_;
};

/// Returns the value of a VARIANT, also of one that refers to its content. Raises kTypeMismatch for a type
/// that no call here has.
Value valueOf(const VARIANT& variant);

/// Owns a counted reference from now on and releases it with the result.
DispatchPtr adopt(IDispatch* object);
/// Adds a reference of its own.
DispatchPtr share(IDispatch* object);

/// Returns a text of automation; the caller owns it.
BSTR makeText(const std::string& text);
std::string textOf(BSTR text);

}  // namespace mergeloom::com
