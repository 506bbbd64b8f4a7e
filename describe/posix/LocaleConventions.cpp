#include "describe/ValueFormat.h"

#include <langinfo.h>

#include <clocale>

namespace mergeloom::describe {

namespace {

bool hasOwnConventions() {
    const std::string locale = std::setlocale(LC_TIME, nullptr);
    return locale != "C" && locale != "POSIX" && !locale.starts_with("C.");
}

}  // namespace

Conventions conventionsOfLocale() {
    const std::lconv& numbers = *std::localeconv();
    Conventions conventions{numbers.decimal_point, numbers.thousands_sep};
    if (!hasOwnConventions()) return conventions;
    conventions.date = ::nl_langinfo(D_FMT);
    conventions.time = ::nl_langinfo(T_FMT);
    return conventions;
}

}  // namespace mergeloom::describe
