#include "app/SharedFiles.h"

#include "base/Paths.h"

#include <utility>

namespace mergeloom {

namespace {

/// The number of records in a document. Offices need more time for each page of a longer document.
constexpr std::size_t kMaxShared = 40;

}  // namespace

/// Relative links lead from the folder of the document, so that all files of a document are in one folder.
bool SharedFiles::belongs(const std::string& path) const {
    return paths_.size() < kMaxShared && parentFolder(paths_.front()) == parentFolder(path);
}

void SharedFiles::add(Record record, std::string path) {
    if (!paths_.empty() && !belongs(path)) flush();
    records_.push_back(std::move(record));
    paths_.push_back(std::move(path));
}

void SharedFiles::flush() {
    const bool isWritten = records_.size() > 1 && writeTogether();
    for (std::size_t number = 0; !isWritten && number < records_.size(); ++number)
        writeAlone(records_[number], paths_[number]);
    records_.clear();
    paths_.clear();
}

bool SharedFiles::writeTogether() {
    for (const Record& record : records_)
        letters_->append(record);
    return ports_.format.saveRecords(
        ports_.files, ports_.converter, paths_, [this](ByteSink& sink) { letters_->finish(sink); },
        ports_.written);
}

void SharedFiles::writeAlone(const Record& record, const std::string& path) {
    letters_->append(record);
    ports_.format.save(ports_.files, ports_.converter, path,
                       [this](ByteSink& sink) { letters_->finish(sink); });
    ports_.written();
}

}  // namespace mergeloom
