#include "app/SeenControls.h"

#include <algorithm>

namespace mergeloom {

void SeenControls::note(const Record& record) {
    for (std::size_t position = 0; position < record.controls.size(); ++position) {
        const RecordControl& control = record.controls[position];
        Seen& seen = seenAt(position, control.name);
        const bool isSubform = control.isSubform || !control.records.empty();
        if (isSubform && !seen.rows) seen.rows = std::make_unique<SeenControls>();
        seen.mostRecords = std::max(seen.mostRecords, control.records.size());
        for (const Record& row : control.records)
            seen.rows->note(row);
    }
}

/// Checks the next control first: records nearly always have the same controls in the same order.
SeenControls::Seen& SeenControls::seenAt(std::size_t position, const std::string& name) {
    if (position < controls_.size() && controls_[position].name == name) return controls_[position];
    const auto found = std::ranges::find(controls_, name, &Seen::name);
    if (found != controls_.end()) return *found;
    return controls_.emplace_back(Seen{name});
}

const SeenControls::Seen* SeenControls::find(const letters::ControlPath& path) const {
    const SeenControls* level = this;
    const Seen* seen = nullptr;
    for (const std::string& name : path) {
        if (level == nullptr) return nullptr;
        const auto found = std::ranges::find(level->controls_, name, &Seen::name);
        if (found == level->controls_.end()) return nullptr;
        seen = &*found;
        level = found->rows.get();
    }
    return seen;
}

bool SeenControls::has(const letters::ControlPath& path) const {
    if (find(path) != nullptr) return true;
    for (auto around = path; !around.empty(); around.pop_back()) {
        const Seen* const seen = find(around);
        if (seen != nullptr && seen->rows && seen->mostRecords == 0) return true;
    }
    return false;
}

std::size_t SeenControls::mostRecords(const letters::ControlPath& path) const {
    const Seen* const seen = find(path);
    return seen == nullptr ? 0 : seen->mostRecords;
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
