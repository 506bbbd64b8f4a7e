#pragma once

#include "office/model/PackageGraft.h"

#include <string>
#include <utility>

namespace mergeloom::graft {

/// Raised in a graft for a change that cannot be repeated.
class Refusal {
  public:
    explicit Refusal(std::string reason, std::string place = {})
        : refusal_{std::move(reason), std::move(place)} {}

    [[nodiscard]] const model::GraftRefusal& refusal() const { return refusal_; }

  private:
    model::GraftRefusal refusal_;
};

}  // namespace mergeloom::graft
