#include "ui/designer/DropProgress.h"

namespace mergeloom {

namespace {

constexpr qint64 kMillisecondsBetween = 50;

}  // namespace

void DropProgress::advance(std::int64_t done, std::int64_t total) {
    if (total <= 0) return;
    if (sinceShown_.isValid() && sinceShown_.elapsed() < kMillisecondsBetween) return;
    sinceShown_.start();
    Q_EMIT advanced(static_cast<int>(done * 100 / total));
}

}  // namespace mergeloom
