#include "base/AutomationError.h"
#include "describe/ReaderPipe.h"
#include "describe/access/AccessSchema.h"
#include "describe/access/TableScan.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

namespace mergeloom::describe::access {

namespace {

constexpr rlim_t kMemory = rlim_t{512} << 20U;  ///< in bytes, besides that of the program itself
constexpr rlim_t kSeconds = 1;                  ///< of the processor
/// The size of a file, in bytes, for which one more second is allowed. Undamaged files are read much faster.
constexpr std::uintmax_t kBytesPerSecond = std::uintmax_t{1} << 20U;

void limit(decltype(RLIMIT_CPU) resource, rlim_t value) {
    const rlimit limits{value, value};
    ::setrlimit(resource, &limits);
}

/// Returns the size of the memory that is mapped, in bytes.
rlim_t mappedSize() {
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

/// Limits the time and memory of this process, since the library may loop or allocate without end in damaged
/// files.
void setLimits(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    limit(RLIMIT_CPU, kSeconds + (error ? 0 : size / kBytesPerSecond));
    limit(RLIMIT_AS, mappedSize() + kMemory);
    limit(RLIMIT_CORE, 0);
}

void sendSchema(const AccessFile& file, PipeWriter& pipe) {
    const AccessSchema schema = readSchema(file);
    for (const Table& table : schema.tables) {
        pipe.message(Message::Table);
        pipe.table(table);
    }
    for (const StoredForm& form : schema.forms) {
        pipe.message(Message::Form);
        pipe.form(form);
    }
    for (const std::string& remark : schema.remarks) {
        pipe.message(Message::Remark);
        pipe.text(remark);
    }
}

void sendRows(TableScan& rows, std::size_t columns, PipeWriter& pipe) {
    while (rows.next()) {
        pipe.message(Message::Row);
        for (std::size_t column = 0; column < columns; ++column)
            pipe.value(rows.value(column));
    }
}

/// Reads the file of the first argument. Sends its schema or, with more arguments, the rows of the table of
/// the second argument with the columns of the others.
void read(const std::vector<std::string>& arguments, PipeWriter& pipe) {
    const AccessFile file(arguments.at(0));
    if (arguments.size() == 1) {
        sendSchema(file, pipe);
    } else {
        const std::vector<std::string> columns(arguments.begin() + 2, arguments.end());
        TableScan rows(file, arguments[1], columns);
        sendRows(rows, columns.size(), pipe);
    }
    pipe.message(Message::End);
}

void run(const std::vector<std::string>& arguments) {
    PipeWriter pipe(kReaderDescriptor);
    try {
        read(arguments, pipe);
    } catch (const AutomationError& error) {
        pipe.message(Message::Failure);
        pipe.text(error.description());
    } catch (const std::exception&) {
        // Sizes in the file exceed the memory or what a text can hold.
        pipe.message(Message::Failure);
        pipe.text("its reading needs too much memory; it may be damaged.");
    }
    pipe.flush();
}

}  // namespace

}  // namespace mergeloom::describe::access

int main(int count, char** values) {
    using namespace mergeloom::describe::access;
    if (count < 2) return 1;
    const std::vector<std::string> arguments(values + 1, values + count);
    setLimits(arguments[0]);
    try {
        run(arguments);
    } catch (const std::exception&) {
        // The other process no longer reads.
        return 1;
    }
    // Skips the library's clean-up, which is not needed at the end of the process.
    ::_exit(0);
}
