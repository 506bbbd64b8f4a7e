#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>

struct chmFile;

namespace mergeloom {

/// A compressed help file (.chm) and its files.
class ChmArchive {
  public:
    /// Opens the file. Raises kFileCouldNotBeRead with a sentence that names the file when it is missing or
    /// no help file.
    explicit ChmArchive(const std::string& path);

    [[nodiscard]] const std::string& path() const { return path_; }
    /// Returns the bytes of a file, by its path from the help file's root, without a "/" before it and with
    /// any letter case; none when there is no such file. Raises kFileCouldNotBeRead when its bytes cannot be
    /// read.
    [[nodiscard]] std::optional<QByteArray> read(const QString& name) const;
    /// Returns the paths of the author's files. Raises kFileCouldNotBeRead when they cannot be listed.
    [[nodiscard]] QStringList names() const;
    /// Raises kFileCouldNotBeRead: the help file is damaged.
    [[noreturn]] void refuseDamaged() const;

  private:
    std::string path_;
    std::shared_ptr<chmFile> file_;
};

}  // namespace mergeloom
