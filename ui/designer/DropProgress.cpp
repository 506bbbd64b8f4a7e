#include "ui/designer/DropProgress.h"

namespace mergeloom {

namespace {

constexpr qint64 kMillisecondsBetween = 50;

}  // namespace

void DropProgress::advance(std::int64_t done, std::int64_t total) {
    if (total <= 0) return;
    if (sinceTold_.isValid() && sinceTold_.elapsed() < kMillisecondsBetween) return;
    sinceTold_.start();
    Q_EMIT advanced(static_cast<int>(done * 100 / total));
}

}  // namespace mergeloom
