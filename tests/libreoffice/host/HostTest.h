#pragma once

#include "doubles/ChangedVariable.h"
#include "doubles/TemporaryFolder.h"
#include "droppers/StructureTest.h"
#include "libreoffice/OfficeProcesses.h"
#include "libreoffice/host/TestWindow.h"
#include "libreoffice/host/VirtualScreen.h"
#include "office/libreoffice/host/LibreOfficeHost.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace mergeloom {

/// Records the reports of an office.
class RecordingListener final : public HostListener {
  public:
    void changesBeganOrEnded() override { ++changeEvents; }
    void keyPressed(HostKey key) override {
        const std::lock_guard lock(mutex_);
        keys_.push_back(key);
    }
    void fileCommand(HostCommand command) override {
        const std::lock_guard lock(mutex_);
        commands_.push_back(command);
    }
    void marksMayHaveMoved() override { ++markEvents; }
    void officeEnded() override { ++ends; }

    std::vector<HostCommand> takeCommands() {
        const std::lock_guard lock(mutex_);
        return std::exchange(commands_, {});
    }

    std::vector<HostKey> takeKeys() {
        const std::lock_guard lock(mutex_);
        return std::exchange(keys_, {});
    }

    std::atomic<int> ends = 0;
    std::atomic<int> changeEvents = 0;
    std::atomic<int> markEvents = 0;

  private:
    std::mutex mutex_;
    std::vector<HostCommand> commands_;
    std::vector<HostKey> keys_;
};

/// A point of the pane below the first lines of a document, on its page.
inline constexpr HostPoint kBelowText{400, 600};

inline constexpr const char* kField = "<db><Form Name='F'><Control Name='City'/></Form></db>";

/// A window with an office in it. One office serves the tests of all fixtures.
class HostTest : public StructureTest {
  public:
    static void startOffice();
    static void endOffice();

    HostTest();
    ~HostTest() override;

  protected:
    struct Stage {
        TemporaryFolder configuration;
        ChangedVariable configurationHome{"XDG_CONFIG_HOME", configuration.path()};
        VirtualScreen screen;
        TestWindow window;
        MemoryFileStore files;
        RecordingListener listener;
        std::unique_ptr<DocumentHost> host;
    };

    static Stage& stage();
    static DocumentHost& host() { return *stage().host; }
    static TestWindow& window() { return stage().window; }
    static word::DocumentPtr document();
    static excel::WorkbookPtr workbook();
    /// Returns the body of the Word document as it is saved.
    static std::string body();
    /// Returns true if the body becomes this one within the time limit of an office.
    static bool bodyBecomes(const std::string& expected);
    /// Gives the keyboard to the document.
    static void giveKeyboard() {
        host().focus([] { return true; });
    }
    /// Opens a Word document with this body.
    static void openBody(const std::string& bodyXml);

    /// Drops the structure document's node at a point as a user does.
    bool dropAt(HostPoint point, const TreeNode& dropped);
    bool drop(const TreeNode& dropped);

    /// Returns the first row of pixels, from the top, in which the caret finds the document.
    static int topOfDocument();
};

/// A new Word document that has the keyboard.
class HostedText : public HostTest {
  protected:
    void SetUp() override;
};

}  // namespace mergeloom
