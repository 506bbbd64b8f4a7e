#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace mergeloom {

/// A variable of the environment that has another value, or none, during the life of this object.
class ChangedVariable {
  public:
    ChangedVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
        if (const char* former = getenv(name_.c_str())) former_ = former;
        set(value);
    }
    ChangedVariable(const ChangedVariable&) = delete;
    ChangedVariable& operator=(const ChangedVariable&) = delete;
    ~ChangedVariable() { set(former_); }

  private:
    void set(const std::optional<std::string>& value) const {
        value ? setenv(name_.c_str(), value->c_str(), 1) : unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> former_;
};

}  // namespace mergeloom
