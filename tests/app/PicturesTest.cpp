#include <QBuffer>
#include <QImage>

#include "tests/app/OpenWindow.h"
#include "tests/app/PicturesOnDemand.h"

namespace frelta {
namespace {

constexpr int kOff = -1;

struct Look {
  const char* row;  // of the first page, whose page is looked at; empty for the first page itself
  int mode;         // of the background, or kOff for the master switch
  int width;
  UserInterfaceStyle style;

  std::string title() const {
    return std::string(*row ? "advanced" : "root") +
           (mode == kOff ? "Off" : "Mode" + std::to_string(mode)) + "Width" +
           std::to_string(width) + (style == UserInterfaceStyle::Dark ? "Dark" : "Light");
  }
  friend void PrintTo(const Look& look, std::ostream* out) { *out << look.title(); }
};

std::vector<Look> looks() {
  std::vector<Look> all;
  for (const auto style : {UserInterfaceStyle::Light, UserInterfaceStyle::Dark}) {
    for (const int mode : {kOff, 0, 1, 2, 3, 4}) all.push_back({"", mode, 390, style});
    for (const int width : {320, 1000}) all.push_back({"", 2, width, style});
    for (const int width : {320, 390, 1000}) all.push_back({"Settings", 2, width, style});
    all.push_back({"Settings", kOff, 390, style});
  }
  return all;
}

std::string photo() {
  QImage image(900, 600, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      image.setPixel(x, y, qRgb(240 - y / 4, 120 + x / 9, 90 + (x + y) / 10));
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "png");
  return bytes.toStdString();
}

class Pictures : public testing::TestWithParam<Look> {};

TEST_P(Pictures, OfAWholePageCutNoText) {
  const Look look = GetParam();
  OpenWindow window(look.style);
  window.platform.processes.standardOutput = "Package: com.tarno.frelta\nVersion: 1.2-3\n";
  window.putSettings({{"Enabled", look.mode == kOff ? 0 : 1},
                      {"SwitchPresetsWithDarkMode", 1},
                      {"BackgroundMode", look.mode},
                      {"backgroundImage", std::string(kBackgroundImagePath)},
                      {"CustomBackgroundColour", "#2E6FDBCC"},
                      {"CustomTextColour", "#FFFFFF"}});
  window.platform.put(kBackgroundImagePath, photo());
  ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), {look.width, 700}));
  const bool opened = !*look.row || window.application->openPage(QString::fromLatin1(look.row));
  ASSERT_TRUE(opened);
  window.settle();
  auto* page = window.application->navigationController()->topViewController();
  const double content = findView<UITableView>(page->view())->contentSize().height;
  window.application->window()->resize(look.width, static_cast<int>(content) + 44);
  window.settle();

  const auto texts = visibleTexts(*window.application->window()->contentItem());

  EXPECT_GT(texts.size(), look.mode == kOff ? 3 : 25);
  for (const QQuickItem* text : texts) {
    const QString shown = text->property("text").toString();
    // Paths are as long as they like; they end in an ellipsis.
    if (shown.startsWith(u'/')) continue;
    EXPECT_FALSE(text->property("truncated").toBool()) << shown.toStdString();
  }
  keepPicture(*window.driver, look.title());
}

INSTANTIATE_TEST_SUITE_P(Looks, Pictures, testing::ValuesIn(looks()),
                         [](const auto& look) { return look.param.title(); });

}  // namespace
}  // namespace frelta
