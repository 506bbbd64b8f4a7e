#include "base/Terminal.h"

#include <unistd.h>

#include <iostream>

namespace mergeloom {

struct Terminal::Parts {
    std::vector<std::string> arguments;
    std::optional<std::string> commandLine{};
};

Terminal::Terminal(int count, char** values)
    : parts_(std::make_unique<Parts>(
          Parts{std::vector<std::string>(values + (count > 0 ? 1 : 0), values + count)})) {}

Terminal::~Terminal() = default;

const std::vector<std::string>& Terminal::arguments() const {
    return parts_->arguments;
}

const std::optional<std::string>& Terminal::commandLine() const {
    return parts_->commandLine;
}

bool Terminal::showsErrors() const {
    return ::isatty(STDERR_FILENO) != 0;
}

std::ostream& Terminal::output() const {
    return std::cout;
}

std::ostream& Terminal::errors() const {
    return std::cerr;
}

Messages* Terminal::messageBoxes() const {
    return nullptr;
}

}  // namespace mergeloom
