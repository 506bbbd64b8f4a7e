#pragma once

#include "base/Record.h"
#include "office/model/letters/PlaceSource.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// The set of controls for which any record has a value.
class SeenControls {
  public:
    void note(const Record& record);

    /// Returns the greatest number of records of a subform in one record around it.
    [[nodiscard]] std::size_t mostRecords(const letters::ControlPath& path) const;
    /// Returns true if any record has the control, or has a subform around it without records.
    [[nodiscard]] bool has(const letters::ControlPath& path) const;
    /// Returns the paths of the controls in the order in which they were seen. Subforms themselves are
    /// omitted.
    [[nodiscard]] std::vector<letters::ControlPath> values() const;

  private:
    struct Seen {
        std::string name;
        std::unique_ptr<SeenControls> rows{};  ///< of a subform
        std::size_t mostRecords = 0;
    };

    [[nodiscard]] const Seen* find(const letters::ControlPath& path) const;
    Seen& seenAt(std::size_t position, const std::string& name);
    void collect(const letters::ControlPath& path, std::vector<letters::ControlPath>& paths) const;

    std::vector<Seen> controls_;
};

}  // namespace mergeloom
