#pragma once

namespace mergeloom::libreoffice {

/// A collection of which no more is known than how many it holds.
template <class Collection>
class WriterCount final : public Collection {
  public:
    explicit WriterCount(int count) : count_(count) {}

    int Count() override { return count_; }

  private:
    int count_;
};

}  // namespace mergeloom::libreoffice
