#pragma once

#include <string>
#include <vector>

namespace mergeloom::describe {

/// The definition of a view in the language of Access, as far as it can be selected here.
struct ViewDefinition {
    enum class Joining { Inner, Left };

    struct Source {
        std::string table{};
        std::string name{};  ///< in the view
    };
    struct Output {
        std::string source{};  ///< its name in the view
        std::string column{};
    };
    struct Order {
        std::string expression{};
        bool isDescending = false;
    };

    std::vector<Source> sources{};  ///< of a Left joining two, of which each row of the first one is selected
    std::vector<Output> outputs{};  ///< one for each column of the view
    Joining joining = Joining::Inner;
    std::vector<std::string> joins{};       ///< conditions
    std::vector<std::string> conditions{};  ///< for the rows that are joined
    std::vector<Order> orders{};
    bool isDistinct = false;
};

}  // namespace mergeloom::describe
