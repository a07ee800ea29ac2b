#include "tests/app/PicturesOnDemand.h"
#include "tests/app/PresetsWindow.h"

namespace frelta {
namespace {

struct Look {
  int width;
  UserInterfaceStyle style;

  std::string title() const {
    return std::to_string(width) + (style == UserInterfaceStyle::Dark ? "Dark" : "Light");
  }
  friend void PrintTo(const Look& look, std::ostream* out) { *out << look.title(); }
};

const std::string kLongName = "Winter evening with warm colours";  // as long as a name may be

class PresetsPictures : public PresetsWindow, public testing::WithParamInterface<Look> {
 protected:
  PresetsPictures() : PresetsWindow(GetParam().style) {}

  void open(const std::string& row = "CurrentPreset") {
    ASSERT_NO_FATAL_FAILURE(openScreen(row, {GetParam().width, 600}));
  }
  /// Nothing in the window may be cut but the longest name, whose row is too short for it and the
  /// tick in the narrowest window.
  void look(const QString& name) {
    driver().settle();
    const QList<QQuickItem*> texts = visibleTexts(*quick().contentItem());
    EXPECT_GT(texts.size(), 1) << name.toStdString();
    for (const QQuickItem* text : texts) {
      if (GetParam().width == 320 && text->property("text").toString().toStdString() == kLongName)
        continue;
      EXPECT_FALSE(text->property("truncated").toBool())
          << name.toStdString() << ": " << text->property("text").toString().toStdString();
    }
    if (UIAlertController* shown = driver().alert()) {
      const CGRect card = findView<UIAlertControllerView>(shown->view())->card()->frame();
      EXPECT_GE(card.minX(), 10);
      EXPECT_GE(card.minY(), 10);
      EXPECT_LE(card.maxY(), 590) << name.toStdString();
    }
    keepPicture(driver(), name.toStdString() + GetParam().title());
  }
};

TEST_P(PresetsPictures, OfNoPresetsAndOfEveryAlertThatAddsOneCutNoText) {
  ASSERT_NO_FATAL_FAILURE(open());
  look("presets0");

  driver().tapRightButton();
  look("alertNew");
  press("Save");
  look("alertInvalid");
  press("OK");
  driver().tapRightButton();
  type(0, QString(33, u'x'));
  press("Save");
  look("alertTooLong");
  press("OK");
  window.pasteboard.text = "text";
  driver().tapRightButton();
  look("alertImportOrAdd");
  press("Import Existing Preset...");
  look("alertImport");
  type(0, QString::fromStdString(kLongName));
  type(1, QStringLiteral("!!!!"));
  look("alertImportFilled");
  press("Import");
  look("alertImportError");
}

TEST_P(PresetsPictures, OfOnePresetAndItsActionsAndAlertsCutNoText) {
  putPreset(kLongName, {{"Text", std::string(20'000, '~')}});
  window.putSettings({{"CurrentPreset", pathOf(kLongName)}});
  ASSERT_NO_FATAL_FAILURE(open());
  look("presets1");

  driver().tapRowWithText(kLongName);
  look("alertApply");
  press("Cancel");
  driver().swipeRowWithText(kLongName);
  look("presetsSwiped");
  QTest::mouseClick(&quick(), Qt::RightButton, {}, {150, 75});
  window.settle();
  look("presetsMenu");
  key(Qt::Key_Escape);
  swipeAndTap(kLongName, QStringLiteral("Delete"));
  look("alertDelete");
  press("Cancel");
  swipeAndTap(kLongName, QStringLiteral("Share"));
  look("alertShare");
}

TEST_P(PresetsPictures, OfTwoHundredPresetsAndOfBothChoicesCutNoText) {
  for (int i = 1; i <= 200; ++i) putPreset("Preset " + std::to_string(i), {});
  window.putSettings({{"SwitchPresetsWithDarkMode", 1},
                      {"CurrentPreset", pathOf("Preset 7")},
                      {"FreltaPresetsLightMode", pathOf("Preset 7")},
                      {"FreltaPresetsDarkMode", pathOf("Preset 7")}});
  for (const std::string row :
       {"CurrentPreset", "FreltaPresetsLightMode", "FreltaPresetsDarkMode"}) {
    ASSERT_NO_FATAL_FAILURE(open(row));
    EXPECT_TRUE(isTicked("Preset 7"));
    look("presets200" + QString::fromStdString(row));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Looks, PresetsPictures,
    testing::Values(Look{320, UserInterfaceStyle::Light}, Look{390, UserInterfaceStyle::Light},
                    Look{1000, UserInterfaceStyle::Light}, Look{320, UserInterfaceStyle::Dark},
                    Look{390, UserInterfaceStyle::Dark}, Look{1000, UserInterfaceStyle::Dark}),
    [](const auto& look) { return look.param.title(); });

}  // namespace
}  // namespace frelta
