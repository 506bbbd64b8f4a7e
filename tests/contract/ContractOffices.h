#pragma once

#include "base/FileStore.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/excel/Forward.h"
#include "office/model/word/Forward.h"

#include <gtest/gtest.h>

#include <string>

namespace mergeloom {

/// The offices that a contract tests on a system: the embedded one, which must not skip any test, and another
/// one.
#ifdef _WIN32
inline constexpr OfficeKind kContractOffices[] = {OfficeKind::Embedded, OfficeKind::Com};
#else
inline constexpr OfficeKind kContractOffices[] = {OfficeKind::Embedded, OfficeKind::LibreOffice};
#endif

/// Start an office with the files of a test. Each program with the contract defines the functions that it
/// needs.
word::ApplicationPtr startContractWord(OfficeKind kind, FileStore& files);
excel::ApplicationPtr startContractExcel(OfficeKind kind, FileStore& files);

inline std::string nameOfOffice(const testing::TestParamInfo<OfficeKind>& info) {
    switch (info.param) {
        case OfficeKind::Embedded:
            return "Embedded";
        case OfficeKind::LibreOffice:
            return "LibreOffice";
        case OfficeKind::Com:
            return "Com";
    }
    return "";
}

}  // namespace mergeloom
