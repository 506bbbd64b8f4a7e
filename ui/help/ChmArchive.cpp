#include "ui/help/ChmArchive.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <chm_lib.h>

#include <cstring>

namespace mergeloom {

namespace {

// A damaged file may state any size and any number of files.
constexpr LONGUINT64 kMaxFileSize = 64U << 20U;
constexpr qsizetype kMaxFiles = 100'000;

int addName(chmFile* /*file*/, chmUnitInfo* unit, void* names) {
    auto& list = *static_cast<QStringList*>(names);
    list.append(QString::fromUtf8(unit->path).mid(1));
    return list.size() < kMaxFiles ? CHM_ENUMERATOR_CONTINUE : CHM_ENUMERATOR_FAILURE;
}

}  // namespace

ChmArchive::ChmArchive(const std::string& path) : path_(path) {
    if (!fileExists(path)) {
        throw AutomationError(kFileCouldNotBeRead, "The help file '" + path + "' is not there.");
    }
    chmFile* const file = chm_open(path.c_str());
    if (file == nullptr) {
        throw AutomationError(kFileCouldNotBeRead,
                              "'" + path + "' cannot be read as a help file. Install the program anew.");
    }
    file_ = std::shared_ptr<chmFile>(file, chm_close);
}

std::optional<QByteArray> ChmArchive::read(const QString& name) const {
    const QByteArray inside = "/" + name.toUtf8();
    chmUnitInfo unit{};
    if (inside.size() > CHM_MAX_PATHLEN ||
        chm_resolve_object(file_.get(), inside.constData(), &unit) != CHM_RESOLVE_SUCCESS) {
        return std::nullopt;
    }
    if (unit.length > kMaxFileSize) refuseDamaged();
    QByteArray bytes(static_cast<qsizetype>(unit.length), '\0');
    if (bytes.isEmpty()) return bytes;
    const LONGINT64 count = chm_retrieve_object(
        file_.get(), &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0, bytes.size());
    if (count != bytes.size()) refuseDamaged();
    return bytes;
}

QStringList ChmArchive::names() const {
    QStringList list;
    const int kinds = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES;
    if (chm_enumerate(file_.get(), kinds, addName, &list) == 0) refuseDamaged();
    return list;
}

void ChmArchive::refuseDamaged() const {
    throw AutomationError(kFileCouldNotBeRead,
                          "The help file '" + path_ + "' is damaged. Install the program anew.");
}

}  // namespace mergeloom
