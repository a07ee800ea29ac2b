#include <gmock/gmock.h>
#include <QGuiApplication>
#include <QString>

#include "quick/RenderBackend.h"
#include "tests/app/StillDriver.h"
#include "tests/monkey/MonkeyOptions.h"
#include "tests/monkey/QtWarnings.h"
#include "tests/support/TestFonts.h"

namespace {

constexpr const char* kUsage =
    "Usage: test_monkey [--seed=NUMBER]... [--steps=NUMBER] [--trace] [--gtest_...]\n";

/// False for what is no option of the monkey's.
bool take(const QString& argument, frelta::MonkeyOptions& options) {
  const QString value = argument.section(u'=', 1);
  bool isGood = true;
  if (argument.startsWith(QStringLiteral("--seed=")))
    options.seeds.push_back(value.toULongLong(&isGood));
  else if (argument.startsWith(QStringLiteral("--steps=")))
    options.steps = value.toInt(&isGood);
  else if (argument == QStringLiteral("--trace"))
    options.tracing = true;
  else
    return argument.startsWith(QStringLiteral("--gtest_"));
  return isGood;
}

}  // namespace

int main(int argc, char** argv) {
  frelta::MonkeyOptions asked{.seeds = {}};
  for (int i = 1; i < argc; ++i) {
    if (take(QString::fromLocal8Bit(argv[i]), asked)) continue;
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (asked.seeds.empty()) asked.seeds = frelta::monkeyOptions().seeds;
  frelta::monkeyOptions() = asked;

  qputenv("QT_QPA_PLATFORM", "offscreen");
  // A frame follows as soon as one is asked for.
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  frelta::useTestFonts();
  // Registers a test for each seed.
  testing::InitGoogleMock(&argc, argv);
  QGuiApplication application(argc, argv);
  frelta::gatherQtWarnings();
  frelta::chooseRenderBackend();
  frelta::StillDriver::animations();
  return RUN_ALL_TESTS();
}
