#include "tests/selector/SelectorTest.h"

namespace frelta {
namespace {

class ContentsCell : public SelectorTest {
 protected:
  /// A view whose flag can be set.
  class Draggable : public FreltaStyleContentsCell {
   public:
    using FreltaStyleContentsCell::FreltaStyleContentsCell;
    bool isDraggableCell() const override { return true; }
  };

  FreltaStyleContentsCell row{{0, 0, 375, 80}};
};

TEST_F(ContentsCell, BuildsTheCardWhateverTheHeight) {
  EXPECT_EQ(FreltaStyleContentsCell::buttonSize(), (CGSize{76, 31}));
  EXPECT_EQ(FreltaStyleContentsCell::padding(), 10);
  EXPECT_EQ(FreltaStyleContentsCell::contentViewPadding(), (CGSize{7.5, 7.5}));
  EXPECT_EQ(row.contentView()->frame(), CGRect(7.5, 7.5, 360, 115));
  EXPECT_EQ(row.contentView()->cornerRadius(), 15);
  EXPECT_EQ(row.contentView()->backgroundColor(), UIColor::colorWithRed(0.96, 0.96, 0.96, 1.0));
  EXPECT_EQ(row.iconImageView()->frame(), CGRect(10, 11.5, 92, 92));
  EXPECT_TRUE(row.iconImageView()->isHidden());
  EXPECT_EQ(row.iconImageView()->contentMode(), UIViewContentMode::ScaleAspectFit);
  EXPECT_EQ(row.headerLabel()->frame(), CGRect(112, 11.5, 375 - 112 - 20 - 76, 37.5));
  EXPECT_EQ(row.subtitleLabel()->frame(), CGRect(112, 59, 375 - 112 - 20 - 76, 27.5));
  EXPECT_EQ(row.enableButton()->frame(), CGRect(274, 42, 76, 31));
  EXPECT_EQ(row.editButton(), nullptr);
}

TEST_F(ContentsCell, RoundsWhereSinglePrecisionIsNamed) {
  const double width = 375.1;
  const FreltaStyleContentsCell odd({0, 0, width, 80});

  EXPECT_EQ(odd.contentView()->frame().size.width, width - 15);
  EXPECT_EQ(odd.enableButton()->frame().minX(), static_cast<float>(width - 15 - 76 - 10));
  EXPECT_EQ(odd.headerLabel()->frame().size.width, width - 112 - 20 - 76);
}

TEST_F(ContentsCell, CutsItsTextsInSinglePrecision) {
  FreltaStyleContentsCell odd({0, 0, 375.1, 80});

  odd.setTitleText(std::string(40, 'x'));
  odd.setSubtitleText(std::string(40, 'x'));

  const double limit = static_cast<float>(odd.contentView()->frame().size.width - 112 - 40 - 76);
  EXPECT_NE(limit, odd.contentView()->frame().size.width - 112 - 40 - 76);
  EXPECT_EQ(odd.headerLabel()->frame().size.width, limit);
  EXPECT_EQ(odd.subtitleLabel()->frame().size.width, limit);
  odd.enableButton()->setFrame({});
  odd.setIsDraggableCell(false);
  EXPECT_EQ(odd.enableButton()->frame().minX(),
            static_cast<float>(odd.contentView()->frame().size.width - 76 - 10));
}

TEST_F(ContentsCell, ShrinksLongTextsInItsLabels) {
  EXPECT_EQ(row.headerLabel()->font(), UIFont::systemFontOfSize(24));
  EXPECT_EQ(row.subtitleLabel()->font(), UIFont::systemFontOfSize(18));
  EXPECT_EQ(row.subtitleLabel()->textColor(), UIColor::darkGrayColor());
  for (const UILabel* label : {row.headerLabel(), row.subtitleLabel()}) {
    EXPECT_TRUE(label->adjustsFontSizeToFitWidth());
    EXPECT_EQ(label->minimumScaleFactor(), 0.2F);
  }
}

TEST_F(ContentsCell, FollowsTheWidthOfItsPlace) {
  row.setFrame({0, 0, 475, 80});

  EXPECT_EQ(row.contentView()->frame(), CGRect(7.5, 7.5, 460, 115));
  EXPECT_EQ(row.iconImageView()->frame(), CGRect(10, 11.5, 92, 92));
  EXPECT_EQ(row.enableButton()->frame(), CGRect(374, 42, 76, 31));
}

TEST_F(ContentsCell, KeepsItsIconInTheMiddleOfATallerCard) {
  row.contentView()->setFrame({7.5, 7.5, 360, 215});

  EXPECT_EQ(row.iconImageView()->frame(), CGRect(10, 61.5, 92, 92));
  EXPECT_EQ(row.autoresizingMask(), UIViewAutoresizingFlexibleWidth);
  for (const UIView* view :
       std::initializer_list<UIView*>{row.contentView(), row.headerLabel(), row.subtitleLabel()}) {
    EXPECT_EQ(view->autoresizingMask(),
              UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  }
}

TEST_F(ContentsCell, SetsItsLabelsBackToBackOnTheMiddleLine) {
  row.setTitleText("Aurora");
  row.setSubtitleText("Widget");

  EXPECT_EQ(row.headerLabel()->frame(), CGRect(112, 57.5 - 29, 6 * 12, 29));
  EXPECT_EQ(row.subtitleLabel()->frame(), CGRect(112, 57.5, 6 * 9, 22));
}

TEST_F(ContentsCell, CutsALongTitleToTheColumnAndKeepsAShortOne) {
  const double limit = 360 - 112 - 40 - 76;

  row.setTitleText(std::string(12, 'x'));
  EXPECT_EQ(row.headerLabel()->frame().size.width, limit);

  row.setTitleText(std::string(10, 'x'));
  EXPECT_EQ(row.headerLabel()->frame().size.width, 120);
}

TEST_F(ContentsCell, ShowsNoTextAsNone) {
  row.setTitleText("Aurora");

  row.setTitleText(std::nullopt);

  EXPECT_EQ(row.headerLabel()->text(), "");
  EXPECT_EQ(row.headerLabel()->frame(), CGRect(112, 57.5, 0, 0));
}

TEST_F(ContentsCell, LeavesNoLabelANegativeWidth) {
  FreltaStyleContentsCell narrow({0, 0, 200, 80});

  narrow.setTitleText("Aurora");

  EXPECT_EQ(narrow.headerLabel()->frame().size.width, 0);
}

TEST_F(ContentsCell, AskedToBeDraggableStaysAsItIs) {
  row.setTitleText("Aurora");

  row.setIsDraggableCell(true);

  EXPECT_FALSE(row.isDraggableCell());
  EXPECT_EQ(row.enableButton()->frame(), CGRect(274, 42, 76, 31));
  EXPECT_EQ(row.headerLabel()->frame().size.width, 72);
}

TEST_F(ContentsCell, WouldLeaveRoomForADragHandle) {
  Draggable draggable({0, 0, 375, 80});
  draggable.iconImageView()->setHidden(false);

  draggable.setTitleText(std::string(40, 'x'));
  draggable.setIsDraggableCell(true);

  EXPECT_EQ(draggable.enableButton()->frame(), CGRect(274 - 35, 42, 76, 31));
  EXPECT_EQ(draggable.headerLabel()->frame().size.width, 360 - 112 - 40 - 76 - 10);
}

TEST_F(ContentsCell, ScalesItsIconByTheCardsHeightInSinglePrecision) {
  row.setTitleText("Aurora");

  row.updateImageViewScale(0.9F);

  const double side = 115 * static_cast<double>(0.9F);
  EXPECT_EQ(row.iconImageView()->frame(), CGRect(10, 57.5 - side / 2, side, side));
  EXPECT_EQ(row.headerLabel()->frame().minX(), 112);
}

TEST_F(ContentsCell, FitsItsLabelsToTheirTextsAnewWheneverItIsLaidOut) {
  row.setTitleText("Aurora");
  row.setSubtitleText("Widget");
  const auto expectFitted = [&] {
    EXPECT_EQ(row.headerLabel()->frame(), CGRect(112, 57.5 - 29, 6 * 12, 29));
    EXPECT_EQ(row.subtitleLabel()->frame(), CGRect(112, 57.5, 6 * 9, 22));
    row.headerLabel()->setFrame({112, 0, 10, 5});
    row.subtitleLabel()->setFrame({112, 0, 10, 5});
  };
  expectFitted();

  row.setIsDraggableCell(false);
  expectFitted();
  row.updateImageViewScale(0.8F);
  expectFitted();
  row.fitLabels();
  expectFitted();
}

TEST_F(ContentsCell, ANewGroundIsForCardsBuiltAfterIt) {
  const UIColor dark = UIColor::colorWithRed(0.1, 0.1, 0.1, 1.0);

  FreltaStyleContentsCell::setCustomBackgroundColor(dark);

  EXPECT_EQ(row.contentView()->backgroundColor(), UIColor::colorWithRed(0.96, 0.96, 0.96, 1.0));
  EXPECT_EQ(FreltaStyleContentsCell({0, 0, 375, 80}).contentView()->backgroundColor(), dark);
}

TEST_F(ContentsCell, TakesAnEditButtonBelowTheOther) {
  row.setEditButton(std::make_unique<FreltaEditButton>(CGRect(0, 0, 76, 31)));

  row.setIsDraggableCell(false);

  ASSERT_NE(row.editButton(), nullptr);
  EXPECT_EQ(row.editButton()->superview(), row.contentView());
  EXPECT_EQ(row.editButton()->frame(), CGRect(274, 42 + 31 + 10, 76, 31));
  row.setEditButton(nullptr);
  EXPECT_EQ(row.editButton(), nullptr);
  EXPECT_EQ(row.contentView()->subviews().size(), 4U);
}

TEST_F(ContentsCell, PassesTheStateToItsButton) {
  row.updateButtonState(2, false);
  EXPECT_EQ(row.enableButton()->enabledState(), 2);
  EXPECT_FALSE(row.enableButton()->isAnimating());

  row.updateButtonState(0);

  EXPECT_EQ(row.enableButton()->enabledState(), 0);
  EXPECT_TRUE(row.enableButton()->isAnimating());
}

TEST_F(ContentsCell, ShowsAPictureWithoutUncoveringIt) {
  const auto picture = std::make_shared<const UIImage>();

  row.setIconImage(picture);

  EXPECT_EQ(row.iconImageView()->image(), picture);
  EXPECT_TRUE(row.iconImageView()->isHidden());
}

}  // namespace
}  // namespace frelta
