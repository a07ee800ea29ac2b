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

}  // namespace

/// Draws the bundle's pictures into its folder.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("Usage: draw-artwork FOLDER\n", stderr);
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
