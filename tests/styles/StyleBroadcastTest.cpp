#include "linux/LinuxDarwinNotificationCenter.h"
#include "tests/styles/StylesTest.h"
#include "tests/support/DarwinListener.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

class StyleBroadcast : public StylesTest {
 protected:
  StyleBroadcast() {
    Platform real = Platform::current();
    real.darwinNotificationCenter = &center;
    Platform::install(real);
  }

  PrivateBus bus;
  LinuxDarwinNotificationCenter center;
};

TEST_F(StyleBroadcast, AnotherProcessHearsOnceThatAnotherStyleIsOn) {
  makeFolder(inThemes("A.theme/Images"));
  makeFolder(inThemes("B.theme/Images"));
  makeFolder(inThemes("C.theme/Images"));
  putSettings({{"EnabledThemePath", inThemes("A.theme")}, {"Foreign", Array{1, "x"}}});
  const auto selector = initSelector<TestSelector>(FreltaStyleModeImages);
  selector->loadStyles();
  const auto b = *std::ranges::find_if(selector->sortedStyles(),
                                       [](const auto& entry) { return entry->title() == "B"; });
  DarwinListener listener;

  selector->setStyleGroup(b, true);
  center.post("end of the test");

  EXPECT_THAT(listener.heard(2),
              testing::ElementsAre("com.tarno.frelta.refresh", "end of the test"));
  EXPECT_EQ(b->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(std::ranges::count(selector->sortedStyles(), FreltaEnabledStateAll,
                               [](const auto& entry) { return entry->enabledState(); }),
            1);
  EXPECT_EQ(settings(),
            (Dictionary{{"EnabledThemePath", inThemes("B.theme")}, {"Foreign", Array{1, "x"}}}));
}

}  // namespace
}  // namespace frelta
