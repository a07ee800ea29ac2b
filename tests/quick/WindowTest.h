#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <memory>
#include <utility>
#include <vector>

#include "fake/FakePlatform.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QuickWindow.h"
#include "tests/uikit/TableRows.h"
#include "uikit/UIKitServices.h"
#include "uikit/UISwitch.h"
#include "uikit/UITableView.h"

namespace frelta {

/// A screen that is a white view, for a test to put others in.
class PlainScreen : public UIViewController {
 protected:
  std::unique_ptr<UIView> loadView() override {
    auto view = std::make_unique<UIView>();
    view->setBackgroundColor(UIColor::systemBackgroundColor());
    return view;
  }
};

/// A screen that is an inset grouped table.
class TableScreen : public UIViewController {
 public:
  explicit TableScreen(std::vector<TableRows::Section> sections) : rows(std::move(sections)) {}
  UITableView& table() { return static_cast<UITableView&>(view()); }
  TableRows rows;

 protected:
  std::unique_ptr<UIView> loadView() override {
    auto table = std::make_unique<UITableView>(CGRect(), UITableViewStyle::InsetGrouped);
    table->setDataSource(&rows);
    table->setDelegate(&rows);
    return table;
  }
};

/// A row with a switch, which the row speaks for.
class SwitchRow : public UITableViewCell {
 public:
  explicit SwitchRow(std::string reuseIdentifier)
      : UITableViewCell(UITableViewCellStyle::Default, std::move(reuseIdentifier)) {
    setSelectionStyle(UITableViewCellSelectionStyle::None);
    auto made = std::make_unique<UISwitch>();
    control = made.get();
    control->addTarget(
        this, "changed",
        [this](UIControl&) {
          ++toggles;
          didChange();
        },
        UIControlEventValueChanged);
    setAccessoryView(std::move(made));
  }
  UIAccessibility accessibility() const override {
    UIAccessibility accessibility = UITableViewCell::accessibility();
    accessibility.role = UIAccessibility::Role::Switch;
    accessibility.on = control->isOn();
    return accessibility;
  }
  bool accessibilityActivate() override {
    control->toggle();
    return true;
  }

  UISwitch* control;
  int toggles = 0;
};

/// A real window on the offscreen platform.
class WindowTest : public testing::Test {
 protected:
  explicit WindowTest(UserInterfaceStyle style = UserInterfaceStyle::Light) : appearance(style) {
    UIKitServices::install({.text = &measurer});
  }
  ~WindowTest() override {
    window.reset();
    settle();
  }

  /// Opens the window with the screen in it.
  void show(std::shared_ptr<UIViewController> screen, int width = 400, int height = 600) {
    window = std::make_unique<QuickWindow>(std::move(screen), appearance);
    window->resize(width, height);
    window->show();
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    settle();
  }
  /// Opens a plain screen of that size and returns its view.
  UIView& showPlain(int width = 400, int height = 600) {
    auto screen = std::make_shared<PlainScreen>();
    show(screen, width, height);
    return screen->view();
  }
  /// Carries changes over and lets what was taken down go.
  void settle() {
    for (int i = 0; i < 3; ++i) {
      QCoreApplication::processEvents();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
  }

  QQuickItem* item(const UIView& view) { return window->itemFor(view); }
  QRectF placeOf(const UIView& view) {
    const QQuickItem* shown = item(view);
    return shown ? shown->mapRectToScene({0, 0, shown->width(), shown->height()}) : QRectF();
  }
  QPoint pointIn(const UIView& view, double xShare = 0.5, double yShare = 0.5) {
    const QRectF place = placeOf(view);
    return {static_cast<int>(place.x() + place.width() * xShare),
            static_cast<int>(place.y() + place.height() * yShare)};
  }
  void click(QPoint point) {
    QTest::mouseClick(window.get(), Qt::LeftButton, Qt::NoModifier, point);
    settle();
  }
  void click(const UIView& view, double xShare = 0.5, double yShare = 0.5) {
    click(pointIn(view, xShare, yShare));
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.get(), key, modifiers);
    settle();
  }
  void type(const char* text) {
    for (; *text; ++text) QTest::keyClick(window.get(), *text);
    settle();
  }
  /// The view whose item has the keyboard; null when none has.
  UIView* focusedView() {
    for (QQuickItem* focused = window->activeFocusItem(); focused;
         focused = focused->parentItem()) {
      if (const auto* node = focused->property("node").value<ViewNode*>()) return node->view();
    }
    return nullptr;
  }

  FakePlatform platform;
  QtTextMeasurer measurer;
  Appearance appearance;
  std::unique_ptr<QuickWindow> window;
};

}  // namespace frelta
