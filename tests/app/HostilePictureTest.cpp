#include <QSemaphore>
#include <QThread>
#include <atomic>

#include "quick/QtWorkQueue.h"
#include "tests/app/SelectorWindow.h"

namespace frelta {
namespace {

/// Pictures take for ever until the gate opens; counted are those that would hold the window.
class SlowPictures : public QtImageServices {
 public:
  std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override {
    if (QThread::currentThread() == qApp->thread()) {
      ++onMainThread;
    } else {
      ++asked;
      gate.tryAcquire(1, 60'000);
    }
    return QtImageServices::imageWithData(bytes);
  }
  mutable std::atomic<int> onMainThread = 0;
  mutable std::atomic<int> asked = 0;
  mutable QSemaphore gate;
};

class HostilePicture : public testing::Test {
 protected:
  HostilePicture() {
    window.images = &pictures;
    window.services.workQueue = &*queue;
  }
  ~HostilePicture() override {
    pictures.gate.release(1000);
    queue.reset();
  }

  SlowPictures pictures;
  SelectorWindow window;
  std::optional<QtWorkQueue> queue{std::in_place};
};

TEST_F(HostilePicture, DoesNotHoldTheSelector) {
  window.installExamples();
  for (int i = 0; i < 30; ++i) window.installStyle(kImagesKind, std::to_string(i), kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));

  window.table().userDidScroll({0, 1'000});
  window.settle();
  const bool tapped = window.driver->tapButton("Enable 3");
  window.settle();
  const Dictionary settings = window.settings();
  const bool isBusy = QTest::qWaitFor([this] { return pictures.asked > 0; });
  const bool wentBack = window.driver->tapBack();
  window.settle();

  EXPECT_TRUE(isBusy);
  EXPECT_TRUE(tapped);
  EXPECT_EQ(settings.at(kImagesKind.key),
            PropertyListValue(SelectorWindow::pathOf(kImagesKind, "3")));
  EXPECT_TRUE(wentBack);
  EXPECT_NE(window.page().title(), kImagesKind.title);
  EXPECT_EQ(pictures.onMainThread, 0);
}

TEST_F(HostilePicture, DoesNotHoldTheFirstPage) {
  window.installExamples();
  const std::string path(kBackgroundImagePath);
  window.platform.put(path, QtImageServices().pngRepresentation(*picture(60, 60, kRed)).value());
  ASSERT_NO_FATAL_FAILURE(
      window.putSettings({{"BackgroundMode", 2}, {"HideKeyCaps", 0}, {"backgroundImage", path}}));
  ASSERT_NO_FATAL_FAILURE(window.open());

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));
  const bool isBusy = QTest::qWaitFor([this] { return pictures.asked > 0; });

  EXPECT_TRUE(isBusy);
  EXPECT_EQ(window.settings().at("HideKeyCaps"), PropertyListValue(1));
  EXPECT_EQ(pictures.onMainThread, 0);
}

TEST_F(HostilePicture, IsShownOnceItIsThere) {
  window.installExamples();
  window.installStyle(kImagesKind, "A", kRed);
  ASSERT_NO_FATAL_FAILURE(window.openSelector(kImagesKind));
  const auto icon = [this] {
    for (UITableViewCell* cell : window.table().visibleCells()) {
      const auto* view = findView<UIImageView>(*cell);
      if (view && view->image() && pixelOf(*view->image(), 80, 80) == kRed) return true;
    }
    return false;
  };
  const bool atFirst = icon();

  pictures.gate.release(1000);
  const bool inTheEnd = QTest::qWaitFor(icon);

  EXPECT_FALSE(atFirst);
  EXPECT_TRUE(inTheEnd);
}

}  // namespace
}  // namespace frelta
