#pragma once

#include "base/AutomationError.h"

#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <string>

/// The meaning of the results of calls between programs.
namespace mergeloom::com {

/// Returns true if an office refused a call because it is busy or shows a dialog; the call was not made.
bool isBusy(HRESULT result);
/// Returns true if the program at the other end has ended.
bool isGone(HRESULT result);
/// Returns the number of the error that an office raised.
ErrorNumber numberOf(const EXCEPINFO& error);
/// Returns the number under which Visual Basic raises a result, or the result itself if there is none.
ErrorNumber numberOf(HRESULT result);
/// Returns the meaning of a result as the end of a sentence.
std::string meaningOf(HRESULT result);

/// The text of an EXCEPINFO, whose texts are freed with it.
class RaisedError {
  public:
    RaisedError() = default;
    RaisedError(const RaisedError&) = delete;
    RaisedError& operator=(const RaisedError&) = delete;
    ~RaisedError();

    [[nodiscard]] EXCEPINFO* get() { return &error_; }
    /// Returns the error's own result.
    [[nodiscard]] HRESULT result() const;
    /// Lets the office complete the record (pfnDeferredFillIn) and returns the error to be raised. The given
    /// text is used for an error without a description.
    [[nodiscard]] AutomationError error(const std::string& called);

  private:
    EXCEPINFO error_{};
};

}  // namespace mergeloom::com
