#pragma once

#include <QApplication>
#include <QString>

#include "tests/support/temp_dir.h"

namespace sched {

// Where a picture of a window goes, for a look by eye: the test's own folder, or the folder that
// SCHEDULER_TEST_PICTURES names, to keep them. Its name tells the scale when it is not 1.
inline QString PicturePath(const TempDir& dir, const QString& name) {
  const QString kept = qEnvironmentVariable("SCHEDULER_TEST_PICTURES");
  const double scale = qApp->devicePixelRatio();
  const QString scaled =
      scale == 1 ? name : name.section('.', 0, 0) + QString("@%1x.png").arg(scale);
  return (kept.isEmpty() ? QString::fromStdString(dir.Path().string()) : kept) + "/" + scaled;
}

}  // namespace sched
