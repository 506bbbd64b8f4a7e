#pragma once

#include <cstddef>
#include <string>

namespace mergeloom::letters {

/// The prefix of the hidden bookmarks at the starts of the records of one document. A number from 0 follows
/// it.
inline constexpr const char* kRecordMarkName = "_MergeloomRecord";

/// Returns the bookmark at the start of a record of one document, counted from 0.
inline std::string recordMarkName(std::size_t record) {
    return kRecordMarkName + std::to_string(record);
}

}  // namespace mergeloom::letters
