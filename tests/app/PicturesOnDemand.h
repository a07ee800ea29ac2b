#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QList>
#include <QQuickItem>
#include <string>

#include "app/TourDriver.h"

namespace frelta {

/// Every visible text at or below the item.
inline QList<QQuickItem*> visibleTexts(QQuickItem& item) {
  QList<QQuickItem*> texts;
  if (!item.isVisible()) return texts;
  if (item.inherits("QQuickText")) texts.append(&item);
  for (QQuickItem* child : item.childItems()) texts.append(visibleTexts(*child));
  return texts;
}

/// With FRELTA_PICTURES set to a folder, leaves there what the window shows, for a person to open.
inline void keepPicture(TourDriver& driver, const std::string& name) {
  const QString folder = qEnvironmentVariable("FRELTA_PICTURES");
  if (folder.isEmpty()) return;
  const QString file = QStringLiteral("%1/%2.png").arg(folder, QString::fromStdString(name));
  EXPECT_TRUE(QDir().mkpath(folder) && driver.grab(file)) << name;
}

}  // namespace frelta
