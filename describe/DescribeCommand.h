#pragma once

#include "base/FileStore.h"
#include "base/Progress.h"
#include "describe/Database.h"
#include "describe/OdbcSource.h"
#include "describe/ValueFormat.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// The records that a description contains.
struct RecordChoice {
    static constexpr std::int64_t kAll = std::numeric_limits<std::int64_t>::max();

    std::int64_t limit = 0;  ///< the most records of the object, kAll for all
    std::optional<RowFilter> filter{};
};

/// The options of the command. An empty text is an absent option.
struct DescribeOptions {
    std::string source{};
    std::vector<std::string> objects{};  ///< "Orders" or "Form Orders"; all if there are none
    RecordChoice records{};
    std::string output{};  ///< the path of the document; empty to write it to the standard output
};

/// The connections of a run to its user.
struct DescribeEvents {
    std::function<void(const std::string&)> remark;  ///< receives a sentence that the user should read
    std::function<bool()> isStopped;                 ///< returns true if the run is to end without a result
    PasswordPrompt askPassword;
    Progress& progress;
};

/// Describes a database by a structure document.
class DescribeCommand {
  public:
    /// All but the options must outlive it.
    DescribeCommand(DescribeOptions options, FileStore& files, const ValueFormat& format,
                    const DescribeEvents& events);

    /// Writes the names of all objects that the source has, one in a line. Raises kFileCouldNotBeRead.
    void list(std::ostream& stream);
    /// Writes the structure document to its file or to the sink. Raises kFileCouldNotBeRead,
    /// kFileCouldNotBeSaved, kCommandFailed if it is stopped, and kOptionNotUnderstood for an object or a
    /// column that the source does not have.
    void run(ByteSink& standardOutput);

  private:
    DescribeOptions options_;
    FileStore& files_;
    const ValueFormat& format_;
    const DescribeEvents& events_;
};

}  // namespace mergeloom::describe
