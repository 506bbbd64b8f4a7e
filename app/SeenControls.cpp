#include "app/SeenControls.h"

#include <algorithm>

namespace mergeloom {

void SeenControls::note(const Record& record) {
    for (std::size_t position = 0; position < record.controls.size(); ++position) {
        const RecordControl& control = record.controls[position];
        Seen& seen = seenAt(position, control.name);
        for (const Record& row : control.records) {
            if (!seen.rows) seen.rows = std::make_unique<SeenControls>();
            seen.rows->note(row);
        }
    }
}

/// Checks the next control first: records nearly always have the same controls in the same order.
SeenControls::Seen& SeenControls::seenAt(std::size_t position, const std::string& name) {
    if (position < controls_.size() && controls_[position].name == name) return controls_[position];
    const auto found = std::ranges::find(controls_, name, &Seen::name);
    if (found != controls_.end()) return *found;
    return controls_.emplace_back(Seen{name});
}

bool SeenControls::has(const letters::ControlPath& path) const {
    const SeenControls* level = this;
    for (const std::string& name : path) {
        if (level == nullptr) return false;
        const auto found = std::ranges::find(level->controls_, name, &Seen::name);
        if (found == level->controls_.end()) return false;
        level = found->rows.get();
    }
    return true;
}

std::vector<letters::ControlPath> SeenControls::values() const {
    std::vector<letters::ControlPath> paths;
    collect({}, paths);
    return paths;
}

void SeenControls::collect(const letters::ControlPath& path, std::vector<letters::ControlPath>& paths) const {
    for (const Seen& seen : controls_) {
        letters::ControlPath below = path;
        below.push_back(seen.name);
        if (seen.rows) {
            seen.rows->collect(below, paths);
        } else {
            paths.push_back(std::move(below));
        }
    }
}

}  // namespace mergeloom
