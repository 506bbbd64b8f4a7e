#pragma once

#include "office/libreoffice/session/CleanupProcess.h"
#include "office/libreoffice/session/OfficeProfile.h"
#include "office/libreoffice/session/ProcessGroup.h"
#include "office/libreoffice/session/UserProfile.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Returns the files that an office keeps in the folders for temporary files while it listens: one for the
/// pipe's name and one for the URL of its profile. An office that is killed leaves them.
std::vector<std::string> socketFiles(const std::string& pipeName, const std::string& profileUrl);

/// Returns the path of LibreOffice's program: the value of the environment variable MERGELOOM_SOFFICE, else
/// "soffice" in the folders of PATH, else the path at which distributions install it. Raises kNotAvailable
/// with a sentence that says what to install or to correct.
std::string findOfficeProgram();

/// An installed LibreOffice in a process of its own, listening on a pipe of its own. Unless users see it, it
/// has a fresh profile that is removed with it. Nothing of it remains, however this process ends, except the
/// profile of an office that users see.
class LibreOfficeProcess {
  public:
    /// Starts the program and does not wait until it listens. Raises kNotAvailable with a sentence that says
    /// why it cannot be started.
    explicit LibreOfficeProcess(const std::string& program, OfficeMode mode = OfficeMode::Hidden,
                                const HostLook& look = {});
    LibreOfficeProcess(const LibreOfficeProcess&) = delete;
    LibreOfficeProcess& operator=(const LibreOfficeProcess&) = delete;
    ~LibreOfficeProcess();

    /// Returns the name of the pipe on which it listens.
    [[nodiscard]] const std::string& pipeName() const { return pipeName_; }
    /// Returns the folder for temporary files, which is removed with the process.
    [[nodiscard]] std::string workFolder() const;
    /// Returns the number of the process group.
    [[nodiscard]] pid_t group() const { return process_->id(); }
    [[nodiscard]] bool isRunning() const { return process_->isRunning(); }
    /// Returns the numbers of all processes of the group.
    [[nodiscard]] std::vector<pid_t> members() const { return process_->members(); }
    /// Replaces the files that are removed as well when this process ends without having ended the office.
    void setPartialFiles(const PartialFiles& partial) const { cleanup_->setPartialFiles(partial); }
    /// Removes these files now.
    void removePartialFiles() const { cleanup_->removePartialFiles(); }
    /// Kills it; may be called by any thread.
    void kill() const;
    /// Waits until it ends as it was asked to; terminates and then kills it when it does not. Bounded in
    /// time.
    void end() const;
    /// Returns the last lines that it wrote, joined into one; empty when it wrote none.
    [[nodiscard]] std::string logTail() const;

  private:
    void stop() const;
    [[nodiscard]] std::string temporaryFolder() const;
    [[nodiscard]] std::string logPath() const;
    [[nodiscard]] std::string profile() const;
    [[nodiscard]] std::string profileUrl() const;
    [[nodiscard]] std::vector<std::string> command(const std::string& program, OfficeMode mode,
                                                   const HostLook& look) const;

    std::optional<CleanupProcess> cleanup_;  ///< destroyed last
    PrivateFolder folder_;
    std::optional<UserProfile> userProfile_;  ///< of an office that users see
    std::string pipeName_;
    std::vector<std::string> sockets_;
    LifelinePipe start_;
    std::optional<ProcessGroup> process_;
};

}  // namespace mergeloom::libreoffice
