#pragma once

#include <QQuickItem>
#include <filesystem>

#include "tests/app/OpenWindow.h"
#include "uikit/UIAlertControllerView.h"

namespace frelta {

inline const std::string kFolder = "/Library/Frelta/Presets/";
inline const std::string kBackupPath = std::string(kSettingsPath) + ".bak";
inline const std::string kRefresh = "com.tarno.frelta.refresh";

/// The application's window at the page that leads to the presets, with hands.
class PresetsWindow : public testing::Test {
 protected:
  using Operation = FailingFiles::Operation;

  explicit PresetsWindow(UserInterfaceStyle style = UserInterfaceStyle::Light) : window(style) {}

  void putPreset(const std::string& name, const Dictionary& contents) {
    window.platform.put(pathOf(name),
                        *window.services.propertyLists->dataWithPropertyList(contents));
  }
  static std::string pathOf(const std::string& name) { return kFolder + name + ".plist"; }
  std::optional<Dictionary> preset(const std::string& name) const {
    return dictionaryWithContentsOfFile(pathOf(name));
  }
  std::vector<std::string> folder() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(window.platform.hostPath(kFolder)))
      names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }
  bool hasBackup() const { return std::filesystem::exists(window.platform.hostPath(kBackupPath)); }
  const std::vector<std::string>& broadcasts() { return window.platform.notifications.posted; }

  /// Opens the window and taps the row that leads to the screen.
  void openScreen(const std::string& row = "CurrentPreset", QSize size = {390, 844}) {
    ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), size));
    ASSERT_TRUE(driver().tapRow(row));
    window.settle();
    ASSERT_EQ(window.application->navigationController()->viewControllers().size(), 2u);
    window.platform.files.resetCalls();
  }

  TourDriver& driver() { return *window.driver; }
  QuickWindow& quick() { return *window.application->window(); }
  /// Swipes and presses; what the main queue has to do for it is done and shown.
  void swipeAndTap(const std::string& row, const QString& action) {
    EXPECT_TRUE(driver().swipeAndTapAction(row, action));
    window.settle();
    window.settle();
  }
  QQuickItem* itemOfRow(const std::string& text) {
    UITableViewCell* cell = driver().findRowWithText(text);
    return cell ? quick().itemFor(*cell) : nullptr;
  }
  std::string alertTitle() { return driver().alert() ? driver().alert()->title() : "no alert"; }
  std::string alertMessage() { return driver().alert() ? driver().alert()->message() : "no alert"; }
  void press(const std::string& button) {
    EXPECT_TRUE(driver().tapAlertButton(button)) << button;
    window.settle();
  }
  void type(std::size_t field, const QString& text) {
    EXPECT_TRUE(driver().typeIntoAlert(field, text)) << text.toStdString();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&quick(), key, modifiers);
    window.settle();
  }
  bool isTicked(const std::string& text) {
    const UITableViewCell* cell = driver().findRowWithText(text);
    return cell && cell->accessoryType() == UITableViewCellAccessoryType::Checkmark;
  }

  OpenWindow window;
};

}  // namespace frelta
