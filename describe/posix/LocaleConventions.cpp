#include "describe/Conventions.h"

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
    Conventions conventions;
    conventions.decimalPoint = numbers.decimal_point;
    conventions.groupSeparator = numbers.thousands_sep;
    conventions.currency = numbers.currency_symbol;
    // The C locale defines neither.
    conventions.isCurrencyFirst = numbers.p_cs_precedes != 0;
    conventions.isCurrencySpaced = numbers.p_sep_by_space == 1;
    if (!hasOwnConventions()) return conventions;
    conventions.date = ::nl_langinfo(D_FMT);
    conventions.time = ::nl_langinfo(T_FMT);
    return conventions;
}

}  // namespace mergeloom::describe
