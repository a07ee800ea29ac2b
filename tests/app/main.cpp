#include <gmock/gmock.h>
#include <QGuiApplication>

#include "quick/RenderBackend.h"
#include "tests/app/StillDriver.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/RestoredApplication.h"
#include "tests/support/TestFonts.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // A frame follows as soon as one is asked for.
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  frelta::useTestFonts();
  testing::InitGoogleMock(&argc, argv);
  // Tests run side by side, and each plays the desktop on the bus of its process.
  const frelta::PrivateBus bus;
  QGuiApplication application(argc, argv);
  frelta::chooseRenderBackend();
  frelta::StillDriver::animations();
  testing::UnitTest::GetInstance()->listeners().Append(new frelta::RestoredApplication);
  return RUN_ALL_TESTS();
}
