#pragma once

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <QPalette>
#include <QTranslator>
#include <cstdlib>
#include <map>
#include <string>

extern char** environ;

namespace frelta {

/// Puts back after each test what belongs to the whole process, so that tests go well in any order.
class RestoredApplication : public testing::EmptyTestEventListener {
 protected:
  void OnTestStart(const testing::TestInfo&) override { before_ = environment(); }
  void OnTestEnd(const testing::TestInfo&) override {
    QLocale::setDefault(QLocale::system());
    qDeleteAll(qApp->findChildren<QTranslator*>());
    QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
    QGuiApplication::setPalette(QPalette());
    QGuiApplication::clipboard()->clear();
    for (const auto& [name, value] : environment()) {
      if (!before_.contains(name)) ::unsetenv(name.c_str());
    }
    for (const auto& [name, value] : before_) ::setenv(name.c_str(), value.c_str(), 1);
  }

 private:
  using Environment = std::map<std::string, std::string>;

  static Environment environment() {
    Environment now;
    for (char** entry = environ; *entry; ++entry) {
      const std::string text(*entry);
      const auto equals = text.find('=');
      now[text.substr(0, equals)] = text.substr(equals + 1);
    }
    return now;
  }

  Environment before_;
};

}  // namespace frelta
