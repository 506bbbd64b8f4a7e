#pragma once

#include "base/AutomationError.h"

#include <cstddef>

/// The common base classes of the object models of Word and Excel.
namespace mergeloom::model {

/// The base of every interface of an object model: used through references, never copied.
class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

/// A collection. Items are counted from 1.
class Counted : public Object {
  public:
    virtual int Count() = 0;

  protected:
    /// Returns the index of the item with a number. Raises the error for a number outside 1 to Count.
    std::size_t indexOf(int number, ErrorNumber error, const char* description) {
        if (number < 1 || number > Count()) throw AutomationError(error, description);
        return static_cast<std::size_t>(number) - 1;
    }
};

/// A collection whose callers need only the count.
template <class Collection>
class FixedCount final : public Collection {
  public:
    explicit FixedCount(int count) : count_(count) {}

    int Count() override { return count_; }

  private:
    int count_;
};

}  // namespace mergeloom::model
