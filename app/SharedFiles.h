#pragma once

#include "app/FilledFormat.h"
#include "base/FileStore.h"
#include "base/Record.h"
#include "office/model/FileConverter.h"
#include "office/model/letters/LetterTemplate.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// Writes the files of records that an office converts, many records at a time: as one document, whose pages
/// become their files. That takes a fraction of the time of one conversion for each record, and the files are
/// the same.
class SharedFiles {
  public:
    /// Services that do the work.
    struct Ports {
        FileStore& files;
        FileConverter& converter;
        const FilledFormat& format;
        std::function<void()> written;  ///< called after each file
    };

    /// The letters are compiled for one document with marks.
    SharedFiles(std::unique_ptr<letters::Letters> letters, Ports ports)
        : letters_(std::move(letters)), ports_(std::move(ports)) {}

    /// Adds a record, and writes the files of all added records when there are many.
    void add(Record record, std::string path);
    /// Writes the files of all added records.
    void flush();

    [[nodiscard]] std::vector<std::string> remarks() const { return letters_->remarks(); }

  private:
    [[nodiscard]] bool belongs(const std::string& path) const;
    bool writeTogether();
    void writeAlone(const Record& record, const std::string& path);

    std::unique_ptr<letters::Letters> letters_;
    Ports ports_;
    std::vector<Record> records_;
    std::vector<std::string> paths_;
};

}  // namespace mergeloom
