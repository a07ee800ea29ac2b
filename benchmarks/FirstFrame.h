#pragma once

#include <sys/resource.h>

#include <QCoreApplication>
#include <QFile>
#include <QQuickWindow>
#include <cstdio>

/// Prints the resident memory in KiB once the window has shown its first frame, and quits.
inline void quitAfterFirstFrame(QQuickWindow& window) {
  QObject::connect(
      &window, &QQuickWindow::frameSwapped, &window,
      [] {
        QFile status(QStringLiteral("/proc/self/status"));
        if (status.open(QIODevice::ReadOnly)) {
          for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("VmRSS:")) std::puts(line.constData());
          }
        }
        std::fflush(stdout);
        // Not the end of the process but its first frame is measured.
        _exit(0);
      },
      Qt::DirectConnection);
}
