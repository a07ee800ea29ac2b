#include "tests/app/OpenWindow.h"
#include "tests/app/PicturesOnDemand.h"

namespace frelta {
namespace {

struct Look {
  const char* row;  // of the first page, whose page is looked at; empty for the first page itself
  std::string name;
  int width;
  UserInterfaceStyle style;

  std::string title() const {
    return name + std::to_string(width) + (style == UserInterfaceStyle::Dark ? "Dark" : "Light");
  }
  friend void PrintTo(const Look& look, std::ostream* out) { *out << look.title(); }
};

class Pictures : public testing::TestWithParam<Look> {};

TEST_P(Pictures, OfAWholePageCutNoText) {
  const Look look = GetParam();
  OpenWindow window(look.style);
  window.putSettings({{"SwitchPresetsWithDarkMode", 1}, {"BackgroundMode", 2}});
  ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), {look.width, 700}));
  const bool opened = !*look.row || window.application->openPage(QString::fromLatin1(look.row));
  ASSERT_TRUE(opened);
  window.settle();
  auto* page = window.application->navigationController()->topViewController();
  const double content = findView<UITableView>(page->view())->contentSize().height;
  window.application->window()->resize(look.width, static_cast<int>(content) + 44);
  window.settle();

  const auto texts = visibleTexts(*window.application->window()->contentItem());

  EXPECT_GT(texts.size(), 25);
  for (const QQuickItem* text : texts) {
    const QString shown = text->property("text").toString();
    // Paths are as long as they like; they end in an ellipsis.
    if (shown.startsWith(u'/')) continue;
    EXPECT_FALSE(text->property("truncated").toBool()) << shown.toStdString();
  }
  keepPicture(*window.driver, look.title());
}

INSTANTIATE_TEST_SUITE_P(
    Looks, Pictures,
    testing::Values(Look{"", "root", 320, UserInterfaceStyle::Light},
                    Look{"", "root", 390, UserInterfaceStyle::Light},
                    Look{"", "root", 1000, UserInterfaceStyle::Light},
                    Look{"", "root", 320, UserInterfaceStyle::Dark},
                    Look{"", "root", 390, UserInterfaceStyle::Dark},
                    Look{"", "root", 1000, UserInterfaceStyle::Dark},
                    Look{"Settings", "advanced", 320, UserInterfaceStyle::Light},
                    Look{"Settings", "advanced", 390, UserInterfaceStyle::Light},
                    Look{"Settings", "advanced", 1000, UserInterfaceStyle::Light},
                    Look{"Settings", "advanced", 320, UserInterfaceStyle::Dark},
                    Look{"Settings", "advanced", 390, UserInterfaceStyle::Dark},
                    Look{"Settings", "advanced", 1000, UserInterfaceStyle::Dark}),
    [](const auto& look) {
      return look.param.name + std::to_string(look.param.width) +
             (look.param.style == UserInterfaceStyle::Dark ? "Dark" : "Light");
    });

}  // namespace
}  // namespace frelta
