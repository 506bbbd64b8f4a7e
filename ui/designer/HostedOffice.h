#pragma once

#include "ui/designer/HostAccess.h"

#include <functional>
#include <memory>
#include <utility>

namespace mergeloom {

/// The office inside the window. It belongs to the office's thread, like the office itself.
class HostedOffice final : public HostAccess {
  public:
    using Starter = std::function<std::unique_ptr<DocumentHost>(const HostWindow& window, DocumentKind kind)>;

    explicit HostedOffice(Starter start) : start_(std::move(start)) {}

    /// Starts an office in place of the former one. Errors as for makeDocumentHost.
    void start(const HostWindow& window, DocumentKind kind) {
        end();
        host_ = start_(window, kind);
    }
    void end() { host_.reset(); }
    [[nodiscard]] bool isRunning() const { return host_ != nullptr; }

    DocumentHost& host() override;

  private:
    Starter start_;
    std::unique_ptr<DocumentHost> host_;
};

}  // namespace mergeloom
