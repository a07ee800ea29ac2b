#include <QDir>

#include "tests/app/SelectorWindow.h"

namespace frelta {
namespace {

struct Look {
  SelectorKind kind;
  int width;
  UserInterfaceStyle style;
  int more;  // styles beside the example

  std::string title() const {
    return kind.name + (more > 0 ? "With" + std::to_string(more) : "") + std::to_string(width) +
           (style == UserInterfaceStyle::Dark ? "Dark" : "Light");
  }
  friend void PrintTo(const Look& look, std::ostream* out) { *out << look.title(); }
};

class SelectorPictures : public testing::TestWithParam<Look> {};

const std::vector<std::string> kNames{"Aurora",    "Midnight in the Garden of the Old Lighthouse",
                                      "Neon",      "سمات عربية",
                                      "Rainbow 🌈", "Paper & Ink"};

// With FRELTA_PICTURES set to a folder, each look is also left there for a person to open.
TEST_P(SelectorPictures, ShowEachCardWhole) {
  const Look look = GetParam();
  SelectorWindow window(look.style);
  window.installExamples();
  for (int i = 0; i < look.more; ++i) {
    const auto place = static_cast<std::size_t>(i);
    const std::string name = place < kNames.size() ? kNames[place] : "Style " + std::to_string(i);
    window.installStyle(look.kind, name,
                        {40 + i * 37 % 200, 60 + i * 59 % 190, 200 - i % 150, 255});
  }
  window.putSettings({{look.kind.key, SelectorWindow::pathOf(
                                          look.kind, look.more > 0 ? "Neon" : look.kind.example)}});
  ASSERT_NO_FATAL_FAILURE(window.openSelector(look.kind, {look.width, 700}));

  const UITableView& table = window.table();

  EXPECT_EQ(window.table().numberOfRowsInSection(1), look.more + 1);
  for (const IndexPath path : table.indexPathsForVisibleRows()) {
    const auto* button = findView<UIButton>(*table.cellForRowAtIndexPath(path));
    const auto* item = window.application->window()->itemFor(*button);
    EXPECT_EQ(item->width(), 76);
    EXPECT_FALSE(item->property("truncated").toBool());
  }
  const QString folder = qEnvironmentVariable("FRELTA_PICTURES");
  if (!folder.isEmpty()) {
    const QString file =
        QStringLiteral("%1/selector-%2.png").arg(folder, QString::fromStdString(look.title()));
    EXPECT_TRUE(QDir().mkpath(folder) && window.driver->grab(file));
  }
}

std::vector<Look> looks() {
  std::vector<Look> all;
  for (const auto style : {UserInterfaceStyle::Light, UserInterfaceStyle::Dark}) {
    for (const int width : {320, 390, 1000}) {
      for (const SelectorKind& kind : {kImagesKind, kHTMLKind, kWidgetKind})
        all.push_back({kind, width, style, 0});
      all.push_back({kImagesKind, width, style, 200});
    }
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Looks, SelectorPictures, testing::ValuesIn(looks()),
                         [](const auto& look) { return look.param.title(); });

}  // namespace
}  // namespace frelta
