#include <QClipboard>
#include <QGuiApplication>

#include "tests/quick/WindowTest.h"
#include "uikit/UILabel.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

class LongFieldTest : public WindowTest {
 protected:
  UITextField& showField() {
    UIView& view = showPlain();
    auto* field = view.addSubview(std::make_unique<UITextField>());
    field->setFrame({20, 20, 300, 40});
    settle();
    click(*field);
    return *field;
  }
};

TEST_F(LongFieldTest, TakesWholeWhatIsPastedAndWhatIsTypedAfterIt) {
  UITextField& field = showField();
  const std::string text(98'480, 'e');
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));

  key(Qt::Key_V, Qt::ControlModifier);
  key(Qt::Key_X);

  EXPECT_EQ(field.text(), text + 'x');
  EXPECT_EQ(item(field)->property("text").toString().size(), 98'481);
  QGuiApplication::clipboard()->clear();
}

TEST_F(LongFieldTest, ShowsWholeWhatIsSetByTheProgram) {
  UITextField& field = showField();

  field.setText(std::string(40'000, 'e'));
  settle();

  EXPECT_EQ(item(field)->property("text").toString().size(), 40'000);
}

TEST_F(LongFieldTest, ALabelOfManyLinesShowsThemAll) {
  UIView& view = showPlain();
  auto* label = view.addSubview(std::make_unique<UILabel>());
  label->setNumberOfLines(0);
  std::string lines;
  for (int i = 0; i < 10'500; ++i) lines += "l\n";
  label->setText(lines + "end");
  label->setFrame({0, 0, 100, 600});
  settle();

  EXPECT_EQ(item(*label)->property("lineCount").toInt(), 10'501);
}

}  // namespace
}  // namespace frelta
