#include "office/libreoffice/calls/CallValues.h"

#include <cstring>
#include <stdexcept>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// The first value of an answer.
enum class CallOutcome { Done, Failed };

}  // namespace

void CallWriter::append(const void* value, std::size_t size) {
    bytes_.append(static_cast<const char*>(value), size);
}

void CallWriter::number(std::int64_t value) {
    append(&value, sizeof value);
}

void CallWriter::real(double value) {
    append(&value, sizeof value);
}

void CallWriter::text(std::string_view value) {
    number(static_cast<std::int64_t>(value.size()));
    bytes_ += value;
}

const char* CallReader::take(std::size_t size) {
    if (size > bytes_.size() - read_) throw std::out_of_range("The bytes of a call end early.");
    const char* const found = bytes_.data() + read_;
    read_ += size;
    return found;
}

std::int64_t CallReader::number() {
    std::int64_t value = 0;
    std::memcpy(&value, take(sizeof value), sizeof value);
    return value;
}

double CallReader::real() {
    double value = 0;
    std::memcpy(&value, take(sizeof value), sizeof value);
    return value;
}

std::string CallReader::text() {
    const auto size = static_cast<std::size_t>(number());
    return {take(size), size};
}

CallWriter doneCall() {
    CallWriter answer;
    putValue(answer, CallOutcome::Done);
    return answer;
}

std::string failedCall(ErrorNumber number, const std::string& description) {
    CallWriter answer;
    putValue(answer, CallOutcome::Failed);
    putValue(answer, number);
    putValue(answer, description);
    return answer.bytes();
}

CallReader checkedAnswer(std::string bytes) {
    CallReader answer(std::move(bytes));
    if (takeValue<CallOutcome>(answer) == CallOutcome::Done) return answer;
    const auto number = takeValue<ErrorNumber>(answer);
    throw AutomationError(number, answer.text());
}

}  // namespace mergeloom::libreoffice
