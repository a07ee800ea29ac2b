#include <gmock/gmock.h>

#include <QGuiApplication>

#include "quick/RenderBackend.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/RestoredApplication.h"
#include "tests/support/TestFonts.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  frelta::useTestFonts();
  testing::InitGoogleMock(&argc, argv);
  // Tests run side by side, and each plays the desktop on the bus of its process.
  const frelta::PrivateBus bus;
  QGuiApplication application(argc, argv);
  frelta::chooseRenderBackend();
  testing::UnitTest::GetInstance()->listeners().Append(new frelta::RestoredApplication);
  return RUN_ALL_TESTS();
}
