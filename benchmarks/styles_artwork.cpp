// Making a style's pictures against decoding their files, and against ImageMagick doing the same.

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "fake/FakePlatform.h"
#include "graphics/GraphicsServices.h"
#include "painting/QtImageServices.h"
#include "resources/artwork/Motifs.h"
#include "styles/FreltaSortedStyle.h"

using namespace frelta;

namespace {

constexpr int kRuns = 15;
constexpr int kSide = 1024;
constexpr const char* kMaskOfImageMagick =
    "-resize '120x120!' '(' -size 120x120 xc:none -fill white -draw 'roundrectangle 0,0 119,119 "
    "27,27' ')' -compose DstIn -composite";

QByteArray pngOf(void (*paint)(QPainter&)) {
  QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kSide / artwork::kIconSize.width(), kSide / artwork::kIconSize.height());
  paint(painter);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "png");
  return bytes;
}

/// Milliseconds of the shortest run of each piece of work; they take turns.
std::vector<double> fastest(const std::vector<std::function<void()>>& works) {
  std::vector<double> times(works.size(), 1e9);
  for (int run = 0; run < kRuns; ++run) {
    for (std::size_t i = 0; i < works.size(); ++i) {
      const auto start = std::chrono::steady_clock::now();
      works[i]();
      const std::chrono::duration<double, std::milli> taken =
          std::chrono::steady_clock::now() - start;
      times[i] = std::min(times[i], taken.count());
    }
  }
  return times;
}

/// Runs the program as a process of its own; it starts and ends within the time.
std::function<void()> imageMagick(const std::string& arguments) {
  return [command = std::string(IMAGEMAGICK) + " " + arguments + " null:"] {
    if (std::system(command.c_str()) != 0) std::fputs("ImageMagick failed\n", stderr);
  };
}

}  // namespace

int main() {
  FakePlatform device;
  QtImageServices images;
  GraphicsServices::install({&images});
  const std::vector<QByteArray> files{pngOf(artwork::paintFreltaIcon),
                                      pngOf(artwork::paintHTMLThemeIcon),
                                      pngOf(artwork::paintWidgetIcon)};
  const auto decode = [&](std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) QImage::fromData(files[i], "png");
  };
  device.put("/S/Icon.png", files[0].toStdString());
  // A fourth, never picked: three files make no stack.
  for (std::size_t i = 0; i < 4; ++i)
    device.put("/S/IconBundles/" + std::string(1, static_cast<char>('a' + i)) + ".png",
               files[i % 3].toStdString());

  const auto icon = [&](std::size_t i) {
    return device.hostPath("/S/IconBundles").string() + "/" + static_cast<char>('a' + i) + ".png";
  };
  FreltaSortedStyle style;
  style.setFullPath("/S");
  const std::string stackOfImageMagick = [&] {
    std::string stack = "-size 220x120 xc:none";
    for (std::size_t i = 3; i-- > 0;) {
      const auto side = std::to_string(120 - 12 * i);
      stack +=
          " '(' " + icon(i) + " " + kMaskOfImageMagick +
          " '(' +clone -background black -shadow 75x2.5+2+2 ')' +swap -background none -layers "
          "merge +repage -resize '" +
          side + "x" + side + "!' ')' -geometry +" + std::to_string(50 * i + 18) + "+" +
          std::to_string(6 * i) + " -compose Over -composite";
    }
    return stack;
  }();
  const auto logo = fastest({[&] { decode(1); }, [&] { style.styleLogo(); }});
  const auto stack = fastest({[&] { decode(3); },
                              [&] {
                                FreltaStyleItem item;
                                item.setPath("/S");
                                device.random.script = {0, 1, 2};
                                item.generateIcon();
                              }});
  // Whole processes do not take turns with the others: they leave the caches cold.
  const auto theirs = fastest({imageMagick("xc:none"),
                               imageMagick(icon(0) + " " + kMaskOfImageMagick +
                                           " -gravity center -background none -extent 160x160"),
                               imageMagick(stackOfImageMagick)});

  const auto report = [](const char* name, const std::vector<double>& times, double others) {
    std::printf(
        "%-6s %6.2f ms, decoding alone %6.2f ms, ratio %.2f; ImageMagick %.1f times as long\n",
        name, times[1], times[0], times[1] / times[0], others / times[1]);
  };
  report("logo", logo, theirs[1] - theirs[0]);
  report("stack", stack, theirs[2] - theirs[0]);
  std::printf("ImageMagick's start and end, %.1f ms, is not counted.\n", theirs[0]);
}
