#pragma once

#include "base/Record.h"
#include "office/model/letters/PlaceSource.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// The set of controls for which any record has a value.
class SeenControls {
  public:
    void note(const Record& record);

    [[nodiscard]] bool has(const letters::ControlPath& path) const;
    /// Returns the paths of the controls in the order in which they were seen. Subforms themselves are
    /// omitted.
    [[nodiscard]] std::vector<letters::ControlPath> values() const;

  private:
    struct Seen {
        std::string name;
        std::unique_ptr<SeenControls> rows{};  ///< of a subform
    };

    Seen& seenAt(std::size_t position, const std::string& name);
    void collect(const letters::ControlPath& path, std::vector<letters::ControlPath>& paths) const;

    std::vector<Seen> controls_;
};

}  // namespace mergeloom
