// Scrolling the selector with ten thousand styles, against a plain list of the same cards.

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
#include <string>
#include <vector>

#include "device/Paths.h"
#include "fake/FakePlatform.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "quick/QtTextMeasurer.h"
#include "quick/QuickWindow.h"
#include "selector/FreltaThemeSelectorViewController.h"
#include "uikit/UIKitServices.h"

using namespace frelta;

namespace {

constexpr QSize kWindow(390, 844);
constexpr int kCards = 10'000;
constexpr int kFrames = 1200;
constexpr int kRounds = 3;
constexpr double kPointsAFrame = 3000.0 / 60;
constexpr int kPictures = 50;

std::string folderOf(int number) {
  return std::string(kThemesFolder) + "Folder " + std::to_string(number);
}

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

std::vector<double> scrollSelector(const FreltaStyleLibrary::Entries& styles) {
  Appearance appearance(UserInterfaceStyle::Light);
  const auto selector = FreltaThemeSelectorViewController::init();
  QuickWindow window(selector, appearance);
  window.resize(kWindow);
  selector->setSortedStyles(styles);
  selector->tableView()->reloadData();
  waitForFrame(window);
  auto* content = window.itemFor(*selector->tableView())->property("content").value<QQuickItem*>();
  return scroll(window, *content->parentItem()->parentItem());
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

  QStringList urls;
  for (int i = 0; i < kPictures; ++i) {
    const std::string path = folderOf(i) + "/Icon@2.png";
    platform.put(path, picture(i).toStdString());
    urls.append(QStringLiteral("file://") +
                QString::fromStdString(platform.hostPath(path).string()));
  }
  FreltaStyleLibrary::Entries styles;
  for (int i = 0; i < kCards; ++i) {
    auto style = std::make_shared<FreltaSortedStyle>();
    style->setDisplayName("Style number " + std::to_string(i));
    style->setFullPath(folderOf(i % kPictures));
    styles.push_back(std::move(style));
  }

  std::vector<double> cards;
  std::vector<double> list;
  for (int round = 0; round < kRounds; ++round) {
    for (const double frame : scrollSelector(styles)) cards.push_back(frame);
    for (const double frame : scrollList(urls)) list.push_back(frame);
  }
  report("cards", cards);
  report("list", list);
  std::printf("cards / list: median %.2f, 99th percentile %.2f\n",
              share(cards, 0.5) / share(list, 0.5), share(cards, 0.99) / share(list, 0.99));
  return 0;
}
