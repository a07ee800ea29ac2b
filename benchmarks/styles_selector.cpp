// The selector's first frame over ten and ten thousand style folders.

#include <QGuiApplication>
#include <QQuickWindow>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <vector>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "graphics/GraphicsServices.h"
#include "linux/LinuxFileManager.h"
#include "painting/QtImageServices.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QuickWindow.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "uikit/UIKitServices.h"
#include "uikit/UINavigationController.h"

using namespace frelta;

namespace {

constexpr QSize kWindow(390, 844);
constexpr int kFew = 10;
constexpr int kMany = 10'000;
constexpr int kRuns = 21;

double milliseconds() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

/// A device with that many images themes, each with an icon for the screen.
class Device {
 public:
  explicit Device(int styles) : files_(platform_.hostPath("/")), services_(Platform::current()) {
    // The application's file manager, which counts nothing.
    services_.fileManager = &files_;
    GraphicsServices::install({&images_});
    const auto context = images_.beginImageContext({92, 92}, 2);
    const std::string icon = images_.pngRepresentation(*context->image()).value();
    for (int i = 0; i < styles; ++i) {
      const std::string folder =
          std::string(kThemesFolder) + "Style " + std::to_string(i) + ".theme";
      std::filesystem::create_directories(platform_.hostPath(folder + "/Images"));
      platform_.put(folder + "/Icon@2.png", icon);
    }
  }
  void install() const {
    Platform::install(services_);
    GraphicsServices::install({&images_});
  }

 private:
  FakePlatform platform_;
  LinuxFileManager files_;
  mutable QtImageServices images_;
  Platform services_;
};

struct Times {
  std::vector<double> scans;
  std::vector<double> picture;
};

/// From the tap that pushes the selector to the picture of the window with its cards.
void measure(Times& times) {
  Appearance appearance(UserInterfaceStyle::Light);
  const auto navigation = std::make_shared<UINavigationController>();
  navigation->pushViewController(std::make_shared<UIViewController>(), false);
  QuickWindow window(navigation, appearance);
  window.resize(kWindow);
  window.show();
  while (!window.isExposed()) QCoreApplication::processEvents();
  window.grabWindow();

  const double start = milliseconds();
  navigation->pushViewController(FreltaThemeSelectorViewController::init(), true);
  const double pushed = milliseconds();
  window.mirror().flush();
  window.grabWindow();
  times.scans.push_back(pushed - start);
  times.picture.push_back(milliseconds() - pushed);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (qEnvironmentVariableIsEmpty("QT_SCALE_FACTOR")) qputenv("QT_SCALE_FACTOR", "2");
  QGuiApplication application(argc, argv);
  QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
  QtTextMeasurer measurer;
  UIKitServices::install({.text = &measurer});

  Device few(kFew);
  Device many(kMany);
  Times ofFew;
  Times ofMany;
  for (int run = 0; run < kRuns; ++run) {
    few.install();
    measure(ofFew);
    many.install();
    measure(ofMany);
  }
  for (const auto& [count, times] : {std::pair(kFew, ofFew), std::pair(kMany, ofMany)})
    std::printf("%5d styles: loading with two scans %.1f ms, layout and picture %.1f ms\n", count,
                median(times.scans), median(times.picture));
  const auto whole = [](const Times& times) { return median(times.scans) + median(times.picture); };
  std::printf("ratio of layout and picture %.2f, of the whole %.2f\n",
              median(ofMany.picture) / median(ofFew.picture), whole(ofMany) / whole(ofFew));
  return 0;
}
