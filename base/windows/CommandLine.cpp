#include "base/windows/CommandLine.h"

#include "base/windows/WindowsText.h"

#include <algorithm>

namespace mergeloom::windows {

namespace {

constexpr std::wstring_view kBlanks = L" \t";

std::wstring_view afterProgram(std::wstring_view line) {
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t end = isQuoted ? line.find(L'"', 1) : line.find_first_of(kBlanks);
    if (end == std::wstring_view::npos) return {};
    line.remove_prefix(isQuoted ? end + 1 : end);
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return line;
}

/// Reads the arguments of a command line in their order.
class Reader {
  public:
    explicit Reader(std::wstring_view line) : rest_(line) {}

    bool hasMore() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
        return !rest_.empty();
    }
    std::wstring next() {
        std::wstring argument;
        bool isQuoted = false;
        while (!rest_.empty() && (isQuoted || kBlanks.find(rest_.front()) == std::wstring_view::npos))
            add(argument, isQuoted);
        return argument;
    }

  private:
    /// Backslashes are ordinary characters unless a quote follows: then two are one, and one makes the quote
    /// an ordinary character. Two quotes in a quoted part are one character and end the part.
    void add(std::wstring& argument, bool& isQuoted) {
        const std::size_t slashes = std::min(rest_.find_first_not_of(L'\\'), rest_.size());
        const bool isQuote = slashes < rest_.size() && rest_[slashes] == L'"';
        argument.append(isQuote ? slashes / 2 : slashes, L'\\');
        rest_.remove_prefix(slashes);
        if (!isQuote) {
            if (slashes == 0) take(argument);
            return;
        }
        if (slashes % 2 == 1) return take(argument);
        rest_.remove_prefix(1);
        if (isQuoted && rest_.starts_with(L'"')) take(argument);
        isQuoted = !isQuoted;
    }
    void take(std::wstring& argument) {
        argument += rest_.front();
        rest_.remove_prefix(1);
    }

    std::wstring_view rest_;
};

}  // namespace

std::vector<std::string> argumentsOf(std::wstring_view line) {
    std::vector<std::string> arguments;
    for (Reader reader(afterProgram(line)); reader.hasMore();)
        arguments.push_back(utf8Text(reader.next()));
    return arguments;
}

std::string withoutProgram(std::wstring_view line) {
    return utf8Text(std::wstring(afterProgram(line)));
}

}  // namespace mergeloom::windows
