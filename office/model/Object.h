#pragma once

/// What the object models of Word and Excel have in common.
namespace mergeloom::model {

/// What every interface of an object model is: used through references, never copied.
class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

/// A collection of which callers ask no more than how many there are.
class Counted : public Object {
  public:
    virtual int Count() = 0;
};

}  // namespace mergeloom::model
