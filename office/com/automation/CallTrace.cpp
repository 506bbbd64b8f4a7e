#include "office/com/automation/CallTrace.h"

#include "base/AutomationError.h"
#include "base/SystemPath.h"

#include <fstream>
#include <string_view>

namespace mergeloom::com {

namespace {

std::string escaped(char character) {
    if (character == '"' || character == '\\') return std::string("\\") + character;
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x20) return {character};
    constexpr std::string_view kDigits = "0123456789abcdef";
    return std::string("\\x") + kDigits[code >> 4U] + kDigits[code & 0xFU];
}

/// Shows each kind of content.
struct Show {
    std::string operator()(std::monostate) const { return "nothing"; }
    std::string operator()(Mixed) const { return "mixed"; }
    std::string operator()(bool truth) const { return truth ? "True" : "False"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const {
        std::string shown = "\"";
        for (const char character : text)
            shown += escaped(character);
        return shown + '"';
    }
    std::string operator()(const DispatchPtr& object) const { return object ? "object" : "Nothing"; }
};

class FileTrace final : public CallTrace {
  public:
    explicit FileTrace(const std::string& path) : file_(systemPath(path), std::ios::app | std::ios::binary) {
        if (file_) return;
        throw AutomationError(kFileCouldNotBeSaved, "The file '" + path + "' could not be written.");
    }
    void write(const std::string& line) override { file_ << line << std::endl; }

  private:
    std::ofstream file_;
};

}  // namespace

CallTracePtr makeFileTrace(const std::string& path) {
    return std::make_shared<FileTrace>(path);
}

std::string shownValue(const Value& value) {
    return value.visit(Show());
}

}  // namespace mergeloom::com
