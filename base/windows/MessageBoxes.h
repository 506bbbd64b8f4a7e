#pragma once

#include "base/Messages.h"

#include <streambuf>
#include <string>

/// Message boxes for a program that was started without a console, so that lines would not be seen.
namespace mergeloom::windows {

/// Returns true if nobody would read the error output: it does not exist, or it is a console that was opened
/// only for this program and closes with it.
bool areErrorsUnseen();

class MessageBoxes final : public Messages {
  public:
    MessageAnswer show(const Message& message) override;
};

/// Shows each text that is flushed in a message box.
class MessageBoxBuffer final : public std::streambuf {
  protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

  private:
    std::string text_;
};

}  // namespace mergeloom::windows
