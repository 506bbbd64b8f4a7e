#include "app/LetterWriters.h"

#include <system_error>
#include <utility>

namespace mergeloom {

namespace {

/// Enough that no thread waits for the reader, and few enough that the records take no memory.
constexpr std::size_t kWaitingForEach = 16;

}  // namespace

LetterWriters::LetterWriters(std::vector<OwnLetters> letters, Save save)
    : letters_(std::move(letters)), save_(std::move(save)) {
    threads_.reserve(letters_.size());
    try {
        for (const OwnLetters& own : letters_)
            threads_.emplace_back([this, &own] { work(*own.letters); });
    } catch (const std::system_error&) {
        // The system may allow fewer threads.
        if (threads_.empty()) throw;
    }
}

LetterWriters::~LetterWriters() {
    {
        const std::scoped_lock lock(mutex_);
        ends_ = true;
        tasks_.clear();
    }
    added_.notify_all();
}

void LetterWriters::add(Record record, std::string path) {
    std::unique_lock lock(mutex_);
    // A letter before the one that failed may still be being written, and fail, too.
    taken_.wait(
        lock, [this] { return error_ ? running_ == 0 : tasks_.size() < kWaitingForEach * threads_.size(); });
    if (error_) std::rethrow_exception(error_);
    tasks_.push_back({++last_, std::move(record), std::move(path)});
    added_.notify_one();
}

std::size_t LetterWriters::wait() {
    std::unique_lock lock(mutex_);
    taken_.wait(lock, [this] { return running_ == 0 && (error_ || tasks_.empty()); });
    return writtenFiles_;
}

void LetterWriters::raiseError() {
    const std::scoped_lock lock(mutex_);
    if (error_) std::rethrow_exception(error_);
}

std::vector<std::string> LetterWriters::remarks() const {
    std::vector<std::string> all;
    for (const OwnLetters& own : letters_) {
        const std::vector<std::string> remarks = own.letters->remarks();
        all.insert(all.end(), remarks.begin(), remarks.end());
    }
    return all;
}

void LetterWriters::work(letters::Letters& letters) {
    std::unique_lock lock(mutex_);
    while (true) {
        added_.wait(lock, [this] { return ends_ || (!error_ && !tasks_.empty()); });
        if (ends_) return;
        const Task task = std::move(tasks_.front());
        tasks_.pop_front();
        ++running_;
        lock.unlock();
        const std::exception_ptr error = write(letters, task);
        lock.lock();
        noteEnd(task.number, error);
    }
}

std::exception_ptr LetterWriters::write(letters::Letters& letters, const Task& task) {
    try {
        save_(task.path, [&](ByteSink& sink) { letters.write({&task.record, 1}, sink); });
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

/// Keeps the error that a single thread would have met.
void LetterWriters::noteEnd(std::size_t number, const std::exception_ptr& error) {
    --running_;
    if (!error) ++writtenFiles_;
    if (error && (!error_ || number < failed_)) {
        error_ = error;
        failed_ = number;
    }
    taken_.notify_all();
}

}  // namespace mergeloom
