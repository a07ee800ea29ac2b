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
  QString shown(const UITextField& field) { return item(field)->property("text").toString(); }
};

TEST_F(LongFieldTest, TakesWholeWhatIsPastedAndWhatIsTypedAfterIt) {
  UITextField& field = showField();
  const std::string text(98'480, 'e');
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));

  key(Qt::Key_V, Qt::ControlModifier);
  key(Qt::Key_X);

  EXPECT_EQ(field.text(), text + 'x');
  QGuiApplication::clipboard()->clear();
}

TEST_F(LongFieldTest, ShowsOnlyTheEndsOfWhatIsLong) {
  UITextField& field = showField();
  QGuiApplication::clipboard()->setText(QString(10'000'000, 'e'));

  key(Qt::Key_V, Qt::ControlModifier);

  EXPECT_EQ(field.text().size(), 10'000'000U);
  EXPECT_EQ(shown(field).size(), 2'001);
  EXPECT_EQ(shown(field)[1'000], QChar(0x2026));
  QGuiApplication::clipboard()->clear();
}

TEST_F(LongFieldTest, KeepsWhatIsSetByTheProgramWhenItIsTypedInto) {
  UITextField& field = showField();
  field.setText(std::string(40'000, 'e'));
  settle();

  key(Qt::Key_End);
  key(Qt::Key_X);
  key(Qt::Key_Home);
  key(Qt::Key_Y);

  EXPECT_EQ(field.text(), 'y' + std::string(40'000, 'e') + 'x');
}

TEST_F(LongFieldTest, PastesIntoTheMiddleAndLeavesTheCursorBehindIt) {
  UITextField& field = showField();
  field.setText("ab");
  settle();
  QGuiApplication::clipboard()->setText("-");
  key(Qt::Key_Home);
  key(Qt::Key_Right);

  key(Qt::Key_V, Qt::ControlModifier);
  key(Qt::Key_X);

  EXPECT_EQ(field.text(), "a-xb");
  QGuiApplication::clipboard()->clear();
}

TEST_F(LongFieldTest, PastesOverWhatIsSelected) {
  UITextField& field = showField();
  field.setText(std::string(40'000, 'e'));
  settle();
  QGuiApplication::clipboard()->setText("short");

  key(Qt::Key_A, Qt::ControlModifier);
  key(Qt::Key_V, Qt::ControlModifier);

  EXPECT_EQ(field.text(), "short");
  EXPECT_EQ(shown(field), "short");
  QGuiApplication::clipboard()->clear();
}

TEST_F(LongFieldTest, CopiesAndCutsWhole) {
  UITextField& field = showField();
  const std::string text(40'000, 'e');
  field.setText(text);
  settle();
  key(Qt::Key_A, Qt::ControlModifier);

  key(Qt::Key_C, Qt::ControlModifier);
  const QString copied = QGuiApplication::clipboard()->text();
  QGuiApplication::clipboard()->clear();
  key(Qt::Key_X, Qt::ControlModifier);

  EXPECT_EQ(copied.toStdString(), text);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
  EXPECT_EQ(field.text(), "");
  QGuiApplication::clipboard()->clear();
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
