#pragma once

#include "office/model/word/Counted.h"

namespace mergeloom::embedded {

/// One of the model's collections of which no more is asked than how many it holds.
template <class Collection>
class EmbeddedCount final : public Collection {
  public:
    explicit EmbeddedCount(int count) : count_(count) {}
    int Count() override { return count_; }

  private:
    int count_;
};

}  // namespace mergeloom::embedded
