#include "tests/app/OpenWindow.h"

namespace frelta {
namespace {

/// The clock of what moves stands still until it is told.
class MotionTest : public testing::Test {
 protected:
  void open(const Dictionary& settings) {
    window.putSettings(settings);
    ASSERT_NO_FATAL_FAILURE(window.open());
  }
  QQuickItem* switchOf(const std::string& row) {
    UITableViewCell* cell = window.driver->findRow(row);
    const UISwitch* control = cell ? findView<UISwitch>(*cell) : nullptr;
    return control ? window.application->window()->itemFor(*control) : nullptr;
  }
  static double shown(const QQuickItem& control) {
    return control.property("shownPosition").toDouble();
  }

  OpenWindow window;
};

TEST_F(MotionTest, ASwitchGlidesWhereItIsPressed) {
  open({{"Enabled", 1}, {"HideKeyCaps", 0}});
  QQuickItem* control = switchOf("HideKeyCaps");
  ASSERT_NE(control, nullptr);
  const QPointF middle = control->mapToScene({control->width() / 2, control->height() / 2});

  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  QCoreApplication::processEvents();
  const double atFirst = shown(*control);
  window.settle();

  EXPECT_LT(atFirst, 1);
  EXPECT_EQ(shown(*control), 1);
}

}  // namespace
}  // namespace frelta
