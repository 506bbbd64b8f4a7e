#pragma once

#include <QString>
#include <vector>

namespace mergeloom {

/// A line of the contents or of the index of a help file.
struct HelpEntry {
    QString title;
    QString topic;  ///< the topic's path inside the help file; empty for a heading without one
    std::vector<HelpEntry> children;
};

}  // namespace mergeloom
