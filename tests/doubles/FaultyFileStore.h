#pragma once

#include "base/AutomationError.h"
#include "base/FileStore.h"

namespace mergeloom {

/// A store over another one in which one call fails: the n-th read, save or write to the sink of a save,
/// counted from 1. A test increases n until a run has no failure.
class FaultyFileStore final : public FileStore {
  public:
    FaultyFileStore(FileStore& store, int failingCall) : store_(store), callsLeft_(failingCall) {}

    [[nodiscard]] bool hasFailed() const { return callsLeft_ <= 0; }

    bool fileExists(const std::string& path) override { return store_.fileExists(path); }

    std::string read(const std::string& path) override {
        count(kFileCouldNotBeRead, "The file '" + path + "' could not be read: the disk is broken.");
        return store_.read(path);
    }

    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override {
        const std::string failure = "The file '" + path + "' could not be saved: the disk is full.";
        count(kFileCouldNotBeSaved, failure);
        store_.save(path, [&](ByteSink& sink) {
            FaultySink faulty(*this, sink, failure);
            writer(faulty);
        });
    }

  private:
    class FaultySink final : public ByteSink {
      public:
        FaultySink(FaultyFileStore& store, ByteSink& sink, const std::string& failure)
            : store_(store), sink_(sink), failure_(failure) {}

        void write(std::span<const char> bytes) override {
            store_.count(kFileCouldNotBeSaved, failure_);
            sink_.write(bytes);
        }

      private:
        FaultyFileStore& store_;
        ByteSink& sink_;
        const std::string& failure_;
    };

    void count(ErrorNumber number, const std::string& failure) {
        if (--callsLeft_ == 0) throw AutomationError(number, failure);
    }

    FileStore& store_;
    int callsLeft_;
};

}  // namespace mergeloom
