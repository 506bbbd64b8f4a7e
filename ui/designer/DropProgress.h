#pragma once

#include "base/Progress.h"

#include <QElapsedTimer>
#include <QObject>

namespace mergeloom {

/// Passes the progress of a drop from the office's thread to that of the windows often enough to be seen.
class DropProgress final : public QObject, public Progress {
    Q_OBJECT

  public:
    void advance(std::int64_t done, std::int64_t total) override;

  Q_SIGNALS:
    void advanced(int percent);

  private:
    QElapsedTimer sinceShown_;
};

}  // namespace mergeloom
