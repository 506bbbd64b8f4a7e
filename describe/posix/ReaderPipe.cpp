#include "describe/ReaderPipe.h"

#include "base/AutomationError.h"
#include "base/SystemError.h"
#include "base/posix/InputWait.h"

#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace mergeloom::describe {

namespace {

constexpr std::size_t kPipeBufferSize = 65536;
/// Limits on the messages of a reading process, whose sizes may be wrong because of a damaged file.
constexpr std::uint32_t kMaxTextSize = 1U << 28U;
constexpr std::uint32_t kMaxCount = 1U << 16U;

[[noreturn]] void raiseBroken() {
    throw AutomationError(kFileCouldNotBeRead, "its reading was broken off; it may be damaged.");
}

}  // namespace

void PipeWriter::text(std::string_view text) {
    number(static_cast<std::uint32_t>(text.size()));
    bytes(text);
}

void PipeWriter::value(const Value& value) {
    number(value.kind);
    switch (value.kind) {
        case Value::Kind::Integer:
            return number(value.integer);
        case Value::Kind::Real:
            return number(value.real);
        case Value::Kind::Text:
        case Value::Kind::Bytes:
            return text(value.text);
        default:
            return;
    }
}

void PipeWriter::table(const Table& table) {
    number(table.kind);
    text(table.name);
    number(static_cast<std::uint32_t>(table.columns.size()));
    for (const Column& column : table.columns) {
        text(column.name);
        text(column.caption);
        number(column.type);
        number(static_cast<std::uint8_t>(column.decimals));
        text(column.format);
        decimals(column.formatDecimals);
        number(static_cast<std::int8_t>(column.display));
        list(column.list);
    }
    number(static_cast<std::uint32_t>(table.keys.size()));
    for (const std::vector<std::string>& key : table.keys)
        texts(key);
    number(static_cast<std::uint32_t>(table.foreignKeys.size()));
    for (const ForeignKey& key : table.foreignKeys) {
        texts(key.columns);
        text(key.referredTable);
        texts(key.referredColumns);
    }
    number(static_cast<std::uint8_t>(table.definition ? 1 : 0));
    if (table.definition) definition(*table.definition);
}

void PipeWriter::definition(const ViewDefinition& view) {
    number(static_cast<std::uint32_t>(view.sources.size()));
    for (const ViewDefinition::Source& source : view.sources)
        texts({source.table, source.name});
    number(static_cast<std::uint32_t>(view.outputs.size()));
    for (const ViewDefinition::Output& output : view.outputs)
        texts({output.source, output.column});
    number(static_cast<std::uint8_t>(view.joining));
    texts(view.joins);
    texts(view.conditions);
    number(static_cast<std::uint32_t>(view.orders.size()));
    for (const ViewDefinition::Order& order : view.orders) {
        text(order.expression);
        number(static_cast<std::uint8_t>(order.isDescending ? 1 : 0));
    }
    number(static_cast<std::uint8_t>(view.isDistinct ? 1 : 0));
}

void PipeWriter::form(const StoredForm& form) {
    text(form.name);
    text(form.source);
    number(static_cast<std::uint8_t>(form.view));
    number(static_cast<std::uint32_t>(form.controls.size()));
    for (const StoredControl& control : form.controls) {
        number(static_cast<std::int8_t>(control.type));
        for (const std::string* const part :
             {&control.name, &control.caption, &control.source, &control.shownObject, &control.format})
            text(*part);
        decimals(control.formatDecimals);
        number(control.section);
        list(control.list);
        texts(control.childFields);
        texts(control.masterFields);
    }
}

void PipeWriter::decimals(const std::optional<int>& decimals) {
    number(static_cast<std::int8_t>(decimals.value_or(-1)));
}

void PipeWriter::list(const ListSource& list) {
    text(list.rows);
    number(static_cast<std::int32_t>(list.boundColumn));
    text(list.widths);
    number(list.kind);
    number(static_cast<std::int32_t>(list.columns));
}

void PipeWriter::texts(const std::vector<std::string>& texts) {
    number(static_cast<std::uint32_t>(texts.size()));
    for (const std::string& each : texts)
        text(each);
}

void PipeWriter::bytes(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kPipeBufferSize) flush();
}

void PipeWriter::flush() {
    std::string_view rest = buffer_;
    while (!rest.empty()) {
        const ssize_t written =
            repeatInterrupted([&] { return ::write(descriptor_, rest.data(), rest.size()); });
        if (written < 0) throw AutomationError(kCommandFailed, "The other process no longer reads.");
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    buffer_.clear();
}

template <typename Enumeration>
Enumeration PipeReader::enumerator(Enumeration last) {
    const auto value = number<std::uint8_t>();
    if (value > static_cast<std::uint8_t>(last)) raiseBroken();
    return static_cast<Enumeration>(value);
}

Message PipeReader::message() {
    return enumerator(Message::End);
}

std::string PipeReader::text() {
    std::string read;
    text(read);
    return read;
}

void PipeReader::text(std::string& text) {
    const auto size = number<std::uint32_t>();
    if (size > kMaxTextSize) raiseBroken();
    text.resize(size);
    bytes(text);
}

Value PipeReader::value(std::string& storage) {
    Value value;
    value.kind = enumerator(Value::Kind::Bytes);
    switch (value.kind) {
        case Value::Kind::Integer:
            value.integer = number<std::int64_t>();
            break;
        case Value::Kind::Real:
            value.real = number<double>();
            break;
        case Value::Kind::Text:
        case Value::Kind::Bytes:
            text(storage);
            value.text = storage;
            break;
        default:
            break;
    }
    return value;
}

Table PipeReader::table() {
    Table table;
    table.kind = enumerator(TableKind::View);
    table.name = text();
    for (std::uint32_t left = count(); left > 0; --left) {
        Column& column = table.columns.emplace_back();
        text(column.name);
        text(column.caption);
        column.type = enumerator(ColumnType::Bytes);
        column.decimals = number<std::uint8_t>();
        text(column.format);
        column.formatDecimals = decimals();
        column.display = controlType();
        column.list = list();
    }
    for (std::uint32_t left = count(); left > 0; --left)
        table.keys.push_back(texts());
    for (std::uint32_t left = count(); left > 0; --left) {
        ForeignKey& key = table.foreignKeys.emplace_back();
        key.columns = texts();
        key.referredTable = text();
        key.referredColumns = texts();
    }
    if (number<std::uint8_t>() != 0) table.definition = definition();
    return table;
}

std::optional<int> PipeReader::decimals() {
    const auto decimals = number<std::int8_t>();
    return decimals < 0 ? std::nullopt : std::optional<int>(decimals);
}

ViewDefinition PipeReader::definition() {
    ViewDefinition view;
    const auto pair = [this] {
        std::vector<std::string> parts = texts();
        if (parts.size() != 2) raiseBroken();
        return parts;
    };
    for (std::uint32_t left = count(); left > 0; --left) {
        const std::vector<std::string> source = pair();
        view.sources.push_back({source[0], source[1]});
    }
    for (std::uint32_t left = count(); left > 0; --left) {
        const std::vector<std::string> output = pair();
        view.outputs.push_back({output[0], output[1]});
    }
    view.joining = enumerator(ViewDefinition::Joining::Left);
    view.joins = texts();
    view.conditions = texts();
    for (std::uint32_t left = count(); left > 0; --left) {
        ViewDefinition::Order& order = view.orders.emplace_back();
        text(order.expression);
        order.isDescending = number<std::uint8_t>() != 0;
    }
    view.isDistinct = number<std::uint8_t>() != 0;
    return view;
}

StoredForm PipeReader::form() {
    StoredForm form;
    text(form.name);
    text(form.source);
    form.view = enumerator(DefaultView::SplitForm);
    for (std::uint32_t left = count(); left > 0; --left) {
        StoredControl& control = form.controls.emplace_back();
        control.type = controlType();
        for (std::string* const part :
             {&control.name, &control.caption, &control.source, &control.shownObject, &control.format})
            text(*part);
        control.formatDecimals = decimals();
        control.section = enumerator(FormSection::PageFooter);
        control.list = list();
        control.childFields = texts();
        control.masterFields = texts();
    }
    return form;
}

ListSource PipeReader::list() {
    ListSource list;
    text(list.rows);
    list.boundColumn = number<std::int32_t>();
    text(list.widths);
    list.kind = enumerator(ListSource::Kind::Values);
    list.columns = number<std::int32_t>();
    return list;
}

ControlType PipeReader::controlType() {
    const auto type = static_cast<ControlType>(number<std::int8_t>());
    const bool isKnown =
        type == ControlType::Unknown || (type >= ControlType::Textbox && type <= ControlType::Attachment);
    if (!isKnown) raiseBroken();
    return type;
}

std::vector<std::string> PipeReader::texts() {
    std::vector<std::string> texts;
    for (std::uint32_t left = count(); left > 0; --left)
        texts.push_back(text());
    return texts;
}

std::uint32_t PipeReader::count() {
    const auto count = number<std::uint32_t>();
    if (count > kMaxCount) raiseBroken();
    return count;
}

void PipeReader::bytes(std::span<char> bytes) {
    while (!bytes.empty()) {
        if (next_ == end_) {
            buffer_.resize(kPipeBufferSize);
            if (!waitForInput(descriptor_))
                throw AutomationError(kCommandFailed, "It was stopped; no structure document was written.");
            const ssize_t size =
                repeatInterrupted([&] { return ::read(descriptor_, buffer_.data(), buffer_.size()); });
            if (size <= 0) raiseBroken();
            next_ = 0;
            end_ = static_cast<std::size_t>(size);
        }
        const std::size_t size = std::min(bytes.size(), end_ - next_);
        std::memcpy(bytes.data(), buffer_.data() + next_, size);
        next_ += size;
        bytes = bytes.subspan(size);
    }
}

}  // namespace mergeloom::describe
