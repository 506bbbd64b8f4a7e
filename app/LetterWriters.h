#pragma once

#include "base/FileStore.h"
#include "base/Record.h"
#include "office/model/letters/LetterTemplate.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace mergeloom {

/// Threads that write letters, each letter to one file. The files are the same as those of one thread; only
/// their order of writing differs.
class LetterWriters {
  public:
    /// Saves what the writer writes to a file. Several threads call it at a time.
    using Save = std::function<void(const std::string& path, const std::function<void(ByteSink&)>& writer)>;

    /// A template that was read for one thread.
    struct OwnLetters {
        std::unique_ptr<letters::LetterTemplate> source;  ///< to which the letters refer
        std::unique_ptr<letters::Letters> letters;
    };

    /// Starts a thread for each of the letters, which are of the same template. Raises std::system_error if
    /// none can be started.
    LetterWriters(std::vector<OwnLetters> letters, Save save);
    LetterWriters(const LetterWriters&) = delete;
    LetterWriters& operator=(const LetterWriters&) = delete;
    /// Letters that no thread has begun are not written.
    ~LetterWriters();

    /// Adds the letter of a record, and waits while too many are added. Raises the error of a former letter.
    void add(Record record, std::string path);
    /// Waits until all added letters are written, or none more after an error. Returns the number of written
    /// files.
    std::size_t wait();
    /// Raises the error of the first letter that could not be written, if any.
    void raiseError();

    /// Must be called after wait.
    [[nodiscard]] std::vector<std::string> remarks() const;

  private:
    struct Task {
        std::size_t number = 0;
        Record record;
        std::string path;
    };

    void work(letters::Letters& letters);
    std::exception_ptr write(letters::Letters& letters, const Task& task);
    void noteEnd(std::size_t number, const std::exception_ptr& error);

    std::vector<OwnLetters> letters_;
    Save save_;
    std::mutex mutex_;
    std::condition_variable added_;
    std::condition_variable taken_;
    std::deque<Task> tasks_;
    std::size_t last_ = 0;     ///< the number of the task that was added last
    std::size_t running_ = 0;  ///< tasks that a thread has begun
    bool ends_ = false;
    std::exception_ptr error_;
    std::size_t failed_ = 0;  ///< the number of the task that raised the error
    std::size_t writtenFiles_ = 0;
    std::vector<std::jthread> threads_;
};

}  // namespace mergeloom
