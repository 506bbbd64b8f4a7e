#include "ui/services/DiagnosticsLog.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "ui/services/StateFolder.h"

#include <sys/file.h>

#include <QDateTime>
#include <QFile>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace mergeloom {

namespace {

constexpr char kLastControlCharacter = 0x1f;

/// Returns the text in one line, cut between characters.
std::string lineOf(const std::string& text) {
    std::string line = text.substr(0, DiagnosticsLog::kMaxTextLength);
    while (line.size() < text.size() && !line.empty() && !isUtf8(line) && isUtf8(text))
        line.pop_back();
    std::ranges::replace_if(
        line, [](char letter) { return letter >= 0 && letter <= kLastControlCharacter; }, ' ');
    const std::string time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toStdString();
    return time + " " + line + "\n";
}

/// Removes the oldest lines, so that the newest take up at most half of the limit.
void removeOldestLines(QFile& file, std::size_t limit) {
    file.seek(0);
    const std::string lines = file.readAll().toStdString();
    const std::size_t kept = std::min(limit / 2, lines.size());
    const std::size_t lineEnd = lines.find('\n', lines.size() - kept);
    file.resize(0);
    if (lineEnd != std::string::npos) file.write(QByteArray::fromStdString(lines.substr(lineEnd + 1)));
}

}  // namespace

DiagnosticsLog::DiagnosticsLog() : DiagnosticsLog(joinPath(stateFolder(), "diagnostics.log")) {}

void DiagnosticsLog::append(const std::string& text) {
    if (!makePrivateFolder(parentFolder(path_))) return;
    QFile file(QString::fromStdString(path_));
    if (!file.open(QFile::ReadWrite | QFile::Append)) return;
    // Another thread or run of the program may be writing to it; closing the file releases the lock.
    if (flock(file.handle(), LOCK_EX) != 0) return;
    const std::string line = lineOf(text);
    if (static_cast<std::size_t>(file.size()) + line.size() > limit_) removeOldestLines(file, limit_);
    file.write(QByteArray::fromStdString(line));
}

std::string sizeLineOf(const std::string& fileName) {
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(installedFile(fileName), missing);
    return "Size of " + fileName + ": " + std::to_string(missing ? 0 : size);
}

}  // namespace mergeloom
