#include <gmock/gmock.h>

#include <QGuiApplication>

#include "quick/RenderBackend.h"
#include "tests/support/RestoredApplication.h"
#include "tests/support/TestFonts.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  frelta::useTestFonts();
  testing::InitGoogleMock(&argc, argv);
  QGuiApplication application(argc, argv);
  frelta::chooseRenderBackend();
  testing::UnitTest::GetInstance()->listeners().Append(new frelta::RestoredApplication);
  return RUN_ALL_TESTS();
}
