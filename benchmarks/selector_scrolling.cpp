// Scrolling ten thousand cards, against a plain list of the same; and their first frame, against
// that of ten.

#include <QBuffer>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include "fake/FakePlatform.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QuickWindow.h"
#include "tests/quick/SyntheticCards.h"
#include "uikit/UIKitServices.h"

using namespace frelta;

namespace {

constexpr QSize kWindow(390, 844);
constexpr int kCards = 10'000;
constexpr int kFrames = 1200;
constexpr int kRounds = 3;
constexpr double kPointsAFrame = 3000.0 / 60;
constexpr int kPictures = 50;
constexpr int kFirstFrames = 21;

double processorMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double share(std::vector<double> values, double part) {
  std::ranges::sort(values);
  return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

QByteArray picture(int number) {
  QImage image(184, 184, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient gradient(0, 0, 184, 184);
  gradient.setColorAt(0, QColor::fromHsv(number * 7 % 360, 160, 240));
  gradient.setColorAt(1, QColor::fromHsv((number * 7 + 60) % 360, 220, 160));
  painter.setBrush(gradient);
  painter.setPen(Qt::NoPen);
  painter.drawRoundedRect(image.rect(), 40, 40);
  painter.setBrush(Qt::white);
  painter.drawEllipse(QPoint(92, 92), 20 + number, 20 + number);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "png");
  return bytes;
}

/// Processor time of each frame while the content moves on at the same speed.
std::vector<double> scroll(QQuickWindow& window, QQuickItem& flickable) {
  std::vector<double> frames;
  bool shown = false;
  const auto connection = QObject::connect(
      &window, &QQuickWindow::frameSwapped, &window, [&] { shown = true; }, Qt::DirectConnection);
  double y = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    shown = false;
    const double start = processorMilliseconds();
    flickable.setProperty("contentY", y += kPointsAFrame);
    window.update();
    while (!shown) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    frames.push_back(processorMilliseconds() - start);
  }
  QObject::disconnect(connection);
  return frames;
}

void waitForFrame(QQuickWindow& window) {
  window.show();
  while (!window.isExposed()) QCoreApplication::processEvents();
  window.grabWindow();
}

std::vector<double> scrollCards(const std::vector<std::string>& pictures, int& cellsMade) {
  Appearance appearance(UserInterfaceStyle::Light);
  const auto screen = std::make_shared<SyntheticCards>(kCards, pictures);
  QuickWindow window(screen, appearance);
  window.resize(kWindow);
  waitForFrame(window);
  auto* content = window.itemFor(screen->table())->property("content").value<QQuickItem*>();
  std::vector<double> frames = scroll(window, *content->parentItem()->parentItem());
  cellsMade = screen->cellsMade;
  return frames;
}

std::vector<double> scrollList(const QStringList& pictures) {
  QQuickView view;
  view.setResizeMode(QQuickView::SizeRootObjectToView);
  view.setInitialProperties({{QStringLiteral("pictures"), pictures}});
  view.setSource(QUrl::fromLocalFile(QStringLiteral(PEER_QML)));
  view.resize(kWindow);
  waitForFrame(view);
  return scroll(view, *view.rootObject());
}

/// Processor time from a screen that is not loaded to its picture in an open window.
double firstFrame(int cards, const std::vector<std::string>& pictures) {
  Appearance appearance(UserInterfaceStyle::Light);
  QuickWindow window(std::make_shared<UIViewController>(), appearance);
  window.resize(kWindow);
  waitForFrame(window);
  const auto screen = std::make_shared<SyntheticCards>(cards, pictures);
  const double start = processorMilliseconds();
  window.uiWindow().setRootViewController(screen);
  window.mirror().flush();
  window.grabWindow();
  return processorMilliseconds() - start;
}

void report(const char* name, const std::vector<double>& frames) {
  std::printf("%-6s median %.2f ms, 99th percentile %.2f ms a frame\n", name, share(frames, 0.5),
              share(frames, 0.99));
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (qEnvironmentVariableIsEmpty("QT_SCALE_FACTOR")) qputenv("QT_SCALE_FACTOR", "2");
  QGuiApplication application(argc, argv);
  QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
  FakePlatform platform;
  QtImageServices images;
  GraphicsServices::install({&images});
  QtTextMeasurer measurer;
  UIKitServices::install({.text = &measurer});

  std::vector<std::string> paths;
  QStringList urls;
  for (int i = 0; i < kPictures; ++i) {
    paths.push_back("/pictures/" + std::to_string(i) + ".png");
    platform.put(paths.back(), picture(i).toStdString());
    urls.append(QStringLiteral("file://") +
                QString::fromStdString(platform.hostPath(paths.back()).string()));
  }

  int cellsMade = 0;
  std::vector<double> cards;
  std::vector<double> list;
  for (int round = 0; round < kRounds; ++round) {
    for (const double frame : scrollCards(paths, cellsMade)) cards.push_back(frame);
    for (const double frame : scrollList(urls)) list.push_back(frame);
  }
  report("cards", cards);
  report("list", list);
  std::printf("cards / list: median %.2f, 99th percentile %.2f\n",
              share(cards, 0.5) / share(list, 0.5), share(cards, 0.99) / share(list, 0.99));
  std::printf("cells made for %d cards: %d\n", kCards, cellsMade);

  std::vector<double> few;
  std::vector<double> many;
  for (int i = 0; i < kFirstFrames; ++i) {
    few.push_back(firstFrame(10, paths));
    many.push_back(firstFrame(kCards, paths));
  }
  std::printf("first frame: 10 cards %.1f ms, %d cards %.1f ms, ratio %.2f\n", share(few, 0.5),
              kCards, share(many, 0.5), share(many, 0.5) / share(few, 0.5));
  return 0;
}
