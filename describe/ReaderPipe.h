#pragma once

#include "describe/Database.h"
#include "describe/StoredForm.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The messages from a process that reads a database file to the process that started it. Both are of the
/// same build, so numbers are sent in the machine's own representation.
namespace mergeloom::describe {

/// The file descriptor to which the reading process writes.
inline constexpr int kReaderDescriptor = 3;

/// The first byte of a message.
enum class Message : std::uint8_t {
    Table,    ///< followed by a table
    Form,     ///< followed by a form
    Remark,   ///< followed by a sentence
    Row,      ///< followed by the values of the columns that were asked for
    Failure,  ///< followed by a sentence; the last message
    End       ///< the last message of a reading that is complete
};

class PipeWriter {
  public:
    explicit PipeWriter(int descriptor) : descriptor_(descriptor) {}

    void message(Message message) { number(static_cast<std::uint8_t>(message)); }
    void text(std::string_view text);
    void value(const Value& value);
    void table(const Table& table);
    void form(const StoredForm& form);
    /// Sends what is buffered. Raises kCommandFailed if the other process no longer reads.
    void flush();

  private:
    template <typename Number>
    void number(Number number) {
        bytes({reinterpret_cast<const char*>(&number), sizeof number});
    }
    void bytes(std::string_view bytes);
    void texts(const std::vector<std::string>& texts);
    void list(const ListSource& list);
    void decimals(const std::optional<int>& decimals);
    void definition(const ViewDefinition& view);

    int descriptor_;
    std::string buffer_;
};

/// Reads messages. Raises kFileCouldNotBeRead if they are incomplete or invalid, and kCommandFailed if this
/// process was asked to end.
class PipeReader {
  public:
    explicit PipeReader(int descriptor) : descriptor_(descriptor) {}

    Message message();
    std::string text();
    /// Returns a value whose bytes are in the given text.
    Value value(std::string& text);
    Table table();
    StoredForm form();

  private:
    template <typename Number>
    Number number() {
        Number number{};
        bytes({reinterpret_cast<char*>(&number), sizeof number});
        return number;
    }
    /// Returns an enumerator. Raises kFileCouldNotBeRead for a value after the last one.
    template <typename Enumeration>
    Enumeration enumerator(Enumeration last);
    ControlType controlType();
    void bytes(std::span<char> bytes);
    void text(std::string& text);
    std::vector<std::string> texts();
    ListSource list();
    std::optional<int> decimals();
    ViewDefinition definition();
    std::uint32_t count();

    int descriptor_;
    std::vector<char> buffer_;
    std::size_t next_ = 0;
    std::size_t end_ = 0;
};

}  // namespace mergeloom::describe
