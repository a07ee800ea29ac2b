#pragma once

#include <gmock/gmock.h>
#include <QTest>

#include <optional>
#include <string>

#include "app/SettingsApplication.h"
#include "app/WindowNotes.h"
#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "fake/FakePasteboard.h"
#include "fake/FakePicturePicker.h"
#include "fake/FakePlatform.h"
#include "foundation/PropertyListFiles.h"
#include "painting/QtImageServices.h"
#include "quick/QtTextMeasurer.h"
#include "tests/app/OwnBundle.h"
#include "tests/app/StillDriver.h"
#include "uikit/UISwitch.h"

namespace frelta {

/// The whole application in an offscreen window, over real files in a root of its own. Everything
/// that would leave the process is a fake, unless a test puts a real service in its place before
/// open().
class OpenWindow {
 public:
  static constexpr QSize kSize{390, 844};

  /// Without a style the desktop decides.
  explicit OpenWindow(std::optional<UserInterfaceStyle> style = UserInterfaceStyle::Light)
      : appearance(style) {
    services = Platform::current();
  }

  void open(const QString& bundle = QStringLiteral(FRELTA_BUNDLE), QSize size = kSize) {
    bundle_ = std::make_unique<OwnBundle>(bundle);
    openAgain(size);
  }
  /// Opens the application anew in the code that open() loaded, with all that it remembers.
  void openAgain(QSize size = kSize) {
    UIKitServices kit;
    kit.text = &text_;
    kit.pasteboard = clipboard;
    kit.pictures = &pictures;
    notes.reset();
    application =
        std::make_unique<SettingsApplication>(services, GraphicsServices{images}, kit, appearance);
    QString error;
    ASSERT_TRUE(application->open(bundle_->path(), error)) << error.toStdString();
    application->window()->resize(size);
    application->window()->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(application->window()));
    notes = std::make_unique<WindowNotes>(*application->window());
    driver =
        std::make_unique<StillDriver>(*application->window(), *application->navigationController());
    settle();
  }

  void settle() {
    driver->settle();
    platform.mainQueue.runPending();
  }

  /// Presses the row's switch with the mouse.
  void clickSwitch(const std::string& row) {
    UITableViewCell* cell = driver->findRow(row);
    ASSERT_NE(cell, nullptr) << row;
    const UISwitch* control = findView<UISwitch>(*cell);
    ASSERT_NE(control, nullptr) << row;
    const QQuickItem* item = application->window()->itemFor(*control);
    ASSERT_NE(item, nullptr) << row;
    const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
    QTest::mouseClick(application->window(), Qt::LeftButton, {}, middle.toPoint());
    settle();
  }

  /// The lowest note at the window's foot; null when there is none.
  QQuickItem* note() const {
    QQuickItem* column = nullptr;
    for (QQuickItem* item : application->window()->contentItem()->childItems())
      if (item->objectName() == QStringLiteral("notes")) column = item;
    return column && !column->childItems().isEmpty() ? column->childItems().last() : nullptr;
  }
  /// What it says; empty when there is none.
  QString noteText() const { return note() ? note()->property("text").toString() : QString(); }

  /// What the settings file holds now; empty when there is none.
  Dictionary settings() const {
    return dictionaryWithContentsOfFile(kSettingsPath).value_or(Dictionary());
  }
  void putSettings(const Dictionary& dictionary) {
    const auto bytes = services.propertyLists->dataWithPropertyList(dictionary);
    ASSERT_TRUE(bytes);
    platform.put(kSettingsPath, *bytes);
  }

  FakePlatform platform;
  Platform services;
  FakePasteboard pasteboard;
  PasteboardService* clipboard = &pasteboard;  // not owned
  FakePicturePicker pictures;
  Appearance appearance;

 private:
  QtImageServices images_;

 public:
  ImageServices* images = &images_;  // not owned

 private:
  QtTextMeasurer text_;
  std::unique_ptr<OwnBundle> bundle_;

 public:
  std::unique_ptr<SettingsApplication> application;
  std::unique_ptr<TourDriver> driver;
  /// At the foot of the window, whoever speaks there.
  std::unique_ptr<WindowNotes> notes;
};

}  // namespace frelta
