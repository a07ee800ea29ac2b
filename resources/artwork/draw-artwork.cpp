#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <cstdio>

#include "Motifs.h"

namespace {

using namespace frelta::artwork;

struct Picture {
  const char* file;
  QSizeF size;
  double scale;
  void (*paint)(QPainter&);
};

constexpr Picture kPictures[] = {
    {"placeholder.png", kIconSize, 3, paintPlaceholder},
    {"iconlarge.png", kIconSize, 3.5, paintFreltaIcon},
    {"Themes/Example Images.theme/Icon.png", kIconSize, 1, paintImagesThemeIcon},
    {"Themes/Example Images.theme/Icon@2.png", kIconSize, 2, paintImagesThemeIcon},
    {"Themes/Example Images.theme/Icon@3.png", kIconSize, 3, paintImagesThemeIcon},
    {"Themes/Example Images.theme/Images/Background.png", kKeyboardSize, 2, paintDunes},
    {"Themes/Example Images.theme/Images/Key.png", kKeySize, 2, paintKey},
    {"Themes/Example HTML.theme/Icon.png", kIconSize, 1, paintHTMLThemeIcon},
    {"Themes/Example HTML.theme/Icon@2.png", kIconSize, 2, paintHTMLThemeIcon},
    {"Themes/Example HTML.theme/Icon@3.png", kIconSize, 3, paintHTMLThemeIcon},
    {"Themes/Example Widget.bundle/Icon.png", kIconSize, 1, paintWidgetIcon},
    {"Themes/Example Widget.bundle/Icon@2.png", kIconSize, 2, paintWidgetIcon},
    {"Themes/Example Widget.bundle/Icon@3.png", kIconSize, 3, paintWidgetIcon},
};

constexpr int kApplicationIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};
constexpr int kLargestSmallIcon = 24;
/// The clip of a rounded icon has hard edges, so icons are drawn larger and shrunk.
constexpr int kOversampling = 4;

bool draw(const Picture& picture, const QString& path) {
  QImage image((picture.size * picture.scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(picture.scale, picture.scale);
  picture.paint(painter);
  painter.end();
  return QDir().mkpath(QFileInfo(path).path()) && image.save(path);
}

bool drawApplicationIcon(int side, const QString& path) {
  const int large = side * kOversampling;
  QImage image(large, large, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(large / kIconSize.width(), large / kIconSize.height());
  (side <= kLargestSmallIcon ? paintSmallApplicationIcon : paintApplicationIcon)(painter);
  painter.end();
  const QImage icon = image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return QDir().mkpath(QFileInfo(path).path()) && icon.save(path);
}

bool drawApplicationIcons(const QString& folder) {
  for (const int side : kApplicationIconSizes) {
    const QString path = QStringLiteral("%1/%2x%2/apps/com.tarno.frelta.png").arg(folder).arg(side);
    if (drawApplicationIcon(side, path)) continue;
    std::fprintf(stderr, "draw-artwork: cannot write %s\n", qPrintable(path));
    return false;
  }
  return true;
}

}  // namespace

/// Draws the bundle's pictures into its folder, or with "--icons" the application's icons into a
/// folder of one icon theme.
int main(int argc, char** argv) {
  if (argc == 3 && qstrcmp(argv[1], "--icons") == 0)
    return drawApplicationIcons(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
  if (argc != 2) {
    std::fputs("Usage: draw-artwork [--icons] FOLDER\n", stderr);
    return 2;
  }
  for (const Picture& picture : kPictures) {
    const QString path =
        QString::fromLocal8Bit(argv[1]) + QLatin1Char('/') + QString::fromUtf8(picture.file);
    if (draw(picture, path)) continue;
    std::fprintf(stderr, "draw-artwork: cannot write %s\n", qPrintable(path));
    return 1;
  }
}
