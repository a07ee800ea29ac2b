#include "uikit/UIView.h"

#include <stdexcept>

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

TEST(UIView, TheFrameGivesBoundsAndCenter) {
  UIView view({10, 20, 30, 40});

  const CGRect bounds = view.bounds();
  const CGPoint center = view.center();

  EXPECT_EQ(bounds, CGRect(0, 0, 30, 40));
  EXPECT_EQ(center, (CGPoint{25, 40}));
}

TEST(UIView, MovingTheCenterKeepsTheSize) {
  UIView view({10, 20, 30, 40});
  CountingObserver observer(view);

  view.setCenter({100, 100});

  EXPECT_EQ(view.frame(), CGRect(85, 80, 30, 40));
  EXPECT_EQ(observer.changes, 1);
  EXPECT_EQ(observer.layoutRequests, 0);
}

TEST(UIView, EachPropertyTellsTheObserverOncePerChange) {
  UIView view({0, 0, 10, 10});
  CountingObserver observer(view);
  const auto setAll = [&view] {
    view.setFrame({0, 0, 20, 10});
    view.setAlpha(0.5);
    view.setHidden(true);
    view.setBackgroundColor(UIColor::whiteColor());
    view.setClipsToBounds(true);
    view.setCornerRadius(3);
    view.setAccessibility({.label = "a"});
    view.setAccessibilityIdentifier("b");
  };

  setAll();
  const int first = observer.changes;
  setAll();

  EXPECT_EQ(first, 8);
  EXPECT_EQ(observer.changes, 8);
}

TEST(UIView, AlphaStaysBetweenNoneAndFull) {
  UIView view;

  view.setAlpha(2);
  const double high = view.alpha();
  view.setAlpha(-1);

  EXPECT_EQ(high, 1);
  EXPECT_EQ(view.alpha(), 0);
}

struct Autoresizing {
  const char* name;
  unsigned mask;
  CGRect before;
  CGRect after;
};

void PrintTo(const Autoresizing& value, std::ostream* stream) {
  *stream << value.name;
}

// The superview grows from 100 x 200 to 160 x 230.
class UIViewAutoresizingTest : public testing::TestWithParam<Autoresizing> {};

TEST_P(UIViewAutoresizingTest, TheChangeGoesToTheFlexibleParts) {
  UIView parent({0, 0, 100, 200});
  UIView* child = parent.addSubview(std::make_unique<UIView>(GetParam().before));
  child->setAutoresizingMask(GetParam().mask);

  parent.setFrame({5, 5, 160, 230});

  EXPECT_EQ(child->frame(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    BothAxes, UIViewAutoresizingTest,
    testing::Values(
        Autoresizing{"Nothing", UIViewAutoresizingNone, {10, 20, 30, 40}, {10, 20, 30, 40}},
        Autoresizing{"Width", UIViewAutoresizingFlexibleWidth, {10, 20, 30, 40}, {10, 20, 90, 40}},
        Autoresizing{
            "LeftMargin", UIViewAutoresizingFlexibleLeftMargin, {10, 20, 30, 40}, {70, 20, 30, 40}},
        Autoresizing{"RightMargin",
                     UIViewAutoresizingFlexibleRightMargin,
                     {10, 20, 30, 40},
                     {10, 20, 30, 40}},
        Autoresizing{
            "Height", UIViewAutoresizingFlexibleHeight, {10, 20, 30, 40}, {10, 20, 30, 70}},
        Autoresizing{
            "TopMargin", UIViewAutoresizingFlexibleTopMargin, {10, 20, 30, 40}, {10, 50, 30, 40}},
        Autoresizing{"BottomMargin",
                     UIViewAutoresizingFlexibleBottomMargin,
                     {10, 20, 30, 40},
                     {10, 20, 30, 40}},
        // 10 and 60 points of margin share the 60 points.
        Autoresizing{"BothSideMargins",
                     UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin,
                     {10, 0, 20, 40},
                     {10 + 60 * 10 / 80.0, 0, 20, 40}},
        // 10, 30 and 60 points share the 60 points.
        Autoresizing{"WholeWidth",
                     UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth |
                         UIViewAutoresizingFlexibleRightMargin,
                     {10, 0, 30, 40},
                     {16, 0, 48, 40}},
        Autoresizing{"TopAndBottomMargins",
                     UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin,
                     {0, 80, 10, 40},
                     {0, 95, 10, 40}},
        // Parts that are all empty share alike.
        Autoresizing{
            "EmptyWidth", UIViewAutoresizingFlexibleWidth, {10, 0, 0, 40}, {10, 0, 60, 40}},
        Autoresizing{"EmptySideMargins",
                     UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin,
                     {0, 0, 100, 40},
                     {30, 0, 100, 40}},
        Autoresizing{"EmptyLeftMarginAndWidth",
                     UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth,
                     {0, 0, 0, 40},
                     {30, 0, 30, 40}},
        Autoresizing{"EmptyTopAndBottomMargins",
                     UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin,
                     {0, 0, 10, 200},
                     {0, 15, 10, 200}}),
    [](const auto& test) { return test.param.name; });

TEST(UIView, AFlexibleLengthNeverGoesBelowNothing) {
  UIView parent({0, 0, 100, 100});
  UIView* child = parent.addSubview(std::make_unique<UIView>(CGRect(50, 0, 10, 10)));
  child->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);

  parent.setFrame({0, 0, 20, 100});

  EXPECT_EQ(child->frame(), CGRect(50, 0, 0, 10));
}

TEST(UIView, AnAddedViewBelongsToTheSuperviewInFrontOfTheOthers) {
  UIView parent;
  CountingObserver observer(parent);

  UIView* first = parent.addSubview(std::make_unique<UIView>());
  UIView* second = parent.addSubview(std::make_unique<UIView>());
  parent.insertSubview(std::make_unique<UIView>(), 0);

  ASSERT_EQ(parent.subviews().size(), 3u);
  EXPECT_EQ(parent.subviews()[1].get(), first);
  EXPECT_EQ(parent.subviews()[2].get(), second);
  EXPECT_EQ(second->superview(), &parent);
  EXPECT_EQ(observer.subviewChanges, 3);
}

TEST(UIView, ARemovedViewIsTheCallersAgain) {
  UIView parent;
  UIView* child = parent.addSubview(std::make_unique<UIView>());
  CountingObserver observer(parent);
  CountingObserver childObserver(*child);

  std::unique_ptr<UIView> back = child->removeFromSuperview();
  std::unique_ptr<UIView> again = child->removeFromSuperview();

  EXPECT_EQ(back.get(), child);
  EXPECT_EQ(again, nullptr);
  EXPECT_EQ(child->superview(), nullptr);
  EXPECT_TRUE(parent.subviews().empty());
  EXPECT_EQ(observer.subviewChanges, 1);
  EXPECT_EQ(childObserver.destructions, 0);
}

TEST(UIView, ASuperviewTakesItsSubviewsWithIt) {
  auto parent = std::make_unique<UIView>();
  UIView* child = parent->addSubview(std::make_unique<UIView>());
  CountingObserver observer(*parent);
  CountingObserver childObserver(*child);

  parent.reset();

  EXPECT_EQ(observer.destructions, 1);
  EXPECT_EQ(childObserver.destructions, 1);
}

TEST(UIView, AViewLearnsOfEachMoveToAnotherSuperview) {
  class MovingView : public UIView {
   public:
    void didMoveToSuperview() override { superviews.push_back(superview()); }
    std::vector<UIView*> superviews;
  };
  UIView parent;
  auto view = std::make_unique<MovingView>();
  MovingView* raw = view.get();

  parent.addSubview(std::move(view));
  const std::unique_ptr<UIView> owner = raw->removeFromSuperview();

  EXPECT_THAT(raw->superviews, testing::ElementsAre(&parent, nullptr));
}

TEST(UIView, DescentCountsTheViewItselfAndAllAbove) {
  UIView root;
  UIView* middle = root.addSubview(std::make_unique<UIView>());
  UIView* leaf = middle->addSubview(std::make_unique<UIView>());
  UIView* other = root.addSubview(std::make_unique<UIView>());

  EXPECT_TRUE(leaf->isDescendantOfView(*leaf));
  EXPECT_TRUE(leaf->isDescendantOfView(root));
  EXPECT_FALSE(leaf->isDescendantOfView(*other));
  EXPECT_FALSE(root.isDescendantOfView(*leaf));
}

TEST(UIView, LayoutRunsOnceForAnyNumberOfRequests) {
  LayoutCountingView view;
  view.layoutIfNeeded();

  view.setNeedsLayout();
  view.setNeedsLayout();
  view.layoutIfNeeded();
  view.layoutIfNeeded();

  EXPECT_EQ(view.passes, 2);
}

TEST(UIView, AllAreLaidOutAnewAndThoseInNoTreeWhenTheyComeIntoOne) {
  LayoutCountingView root;
  auto* there = root.addSubview(std::make_unique<LayoutCountingView>());
  auto* leaving = root.addSubview(std::make_unique<LayoutCountingView>());
  auto* leaf = leaving->addSubview(std::make_unique<LayoutCountingView>());
  root.layoutIfNeeded();
  auto left = leaving->removeFromSuperview();
  root.layoutIfNeeded();
  ASSERT_EQ(root.passes, 2);

  UIView::setAllNeedLayout();
  root.layoutIfNeeded();
  root.layoutIfNeeded();

  EXPECT_EQ(root.passes, 3);
  EXPECT_EQ(there->passes, 2);
  EXPECT_EQ(leaf->passes, 1);
  root.addSubview(std::move(left));
  root.layoutIfNeeded();
  root.layoutIfNeeded();
  EXPECT_EQ(leaving->passes, 2);
  EXPECT_EQ(leaf->passes, 2);
  EXPECT_EQ(there->passes, 2);
}

TEST(UIView, OnlyViewsThatAskedAreLaidOut) {
  LayoutCountingView root;
  auto* asking = root.addSubview(std::make_unique<LayoutCountingView>());
  auto* sibling = root.addSubview(std::make_unique<LayoutCountingView>());
  auto* leaf = asking->addSubview(std::make_unique<LayoutCountingView>());
  root.layoutIfNeeded();
  CountingObserver observer(root);

  leaf->setNeedsLayout();
  root.layoutIfNeeded();

  EXPECT_EQ(root.passes, 1);
  EXPECT_EQ(asking->passes, 1);
  EXPECT_EQ(sibling->passes, 1);
  EXPECT_EQ(leaf->passes, 2);
  EXPECT_EQ(observer.layoutRequests, 1);
}

TEST(UIView, OnlyANewSizeAsksForLayout) {
  LayoutCountingView view({0, 0, 10, 10});
  view.layoutIfNeeded();

  view.setFrame({5, 5, 10, 10});
  view.layoutIfNeeded();
  const int moved = view.passes;
  view.setFrame({5, 5, 11, 10});
  view.layoutIfNeeded();

  EXPECT_EQ(moved, 1);
  EXPECT_EQ(view.passes, 2);
}

TEST(UIView, AViewTakenAwayWhileItWaitedIsLaidOutWhereItComesTo) {
  UIView first;
  UIView second;
  auto* view = first.addSubview(std::make_unique<LayoutCountingView>());
  auto* leaf = view->addSubview(std::make_unique<LayoutCountingView>());
  first.layoutIfNeeded();
  second.layoutIfNeeded();

  std::unique_ptr<UIView> owner = view->removeFromSuperview();
  leaf->setNeedsLayout();
  second.addSubview(std::move(owner));
  second.layoutIfNeeded();

  EXPECT_EQ(view->passes, 1);
  EXPECT_EQ(leaf->passes, 2);
}

TEST(UIView, SubviewsAddedByALayoutAreLaidOutInTheSamePass) {
  class GrowingView : public UIView {
   public:
    void layoutSubviews() override {
      ++passes;
      if (!added) added = addSubview(std::make_unique<LayoutCountingView>());
    }
    int passes = 0;
    LayoutCountingView* added = nullptr;
  };
  GrowingView view;

  view.layoutIfNeeded();
  view.layoutIfNeeded();

  EXPECT_EQ(view.passes, 1);
  EXPECT_EQ(view.added->passes, 1);
}

TEST(UIView, ALayoutThatThrowsIsNotTriedAgainUnasked) {
  class ThrowingView : public UIView {
   public:
    void layoutSubviews() override {
      ++passes;
      throw std::runtime_error("layout failed on purpose");
    }
    int passes = 0;
  };
  ThrowingView view;
  auto* child = view.addSubview(std::make_unique<LayoutCountingView>());

  EXPECT_THROW(view.layoutIfNeeded(), std::runtime_error);
  EXPECT_NO_THROW(view.layoutIfNeeded());

  EXPECT_EQ(view.passes, 1);
  EXPECT_EQ(child->passes, 1);
}

TEST(UIView, SizeToFitKeepsTheOrigin) {
  class FittingView : public UIView {
   public:
    using UIView::UIView;
    CGSize sizeThatFits(CGSize size) const override { return {size.width + 1, 7}; }
  };
  FittingView view({3, 4, 10, 10});

  view.sizeToFit();

  EXPECT_EQ(view.frame(), CGRect(3, 4, 11, 7));
}

TEST(UIView, AHitGoesToTheFrontMostViewAtThePoint) {
  UIView root({50, 50, 100, 100});
  UIView* back = root.addSubview(std::make_unique<UIView>(CGRect(10, 10, 50, 50)));
  UIView* front = root.addSubview(std::make_unique<UIView>(CGRect(40, 40, 50, 50)));
  UIView* inside = front->addSubview(std::make_unique<UIView>(CGRect(10, 10, 10, 10)));

  EXPECT_EQ(root.hitTest({5, 5}), &root);
  EXPECT_EQ(root.hitTest({20, 20}), back);
  EXPECT_EQ(root.hitTest({45, 45}), front);
  EXPECT_EQ(root.hitTest({55, 55}), inside);
  EXPECT_EQ(root.hitTest({100, 5}), nullptr);
}

TEST(UIView, NothingHitsHiddenOrTransparentViews) {
  UIView root({0, 0, 100, 100});
  UIView* child = root.addSubview(std::make_unique<UIView>(CGRect(0, 0, 100, 100)));

  child->setHidden(true);
  UIView* whileHidden = root.hitTest({5, 5});
  child->setHidden(false);
  child->setAlpha(0.005);
  UIView* whileTransparent = root.hitTest({5, 5});
  child->setAlpha(0.02);

  EXPECT_EQ(whileHidden, &root);
  EXPECT_EQ(whileTransparent, &root);
  EXPECT_EQ(root.hitTest({5, 5}), child);
}

TEST(UIView, EndEditingTakesTheKeyboardFromBelow) {
  class Responder : public UIView {
   public:
    bool isFirstResponder() const override { return has; }
    bool resignFirstResponder() override {
      if (!gives) return false;
      has = false;
      return true;
    }
    bool has = true;
    bool gives = true;
  };
  UIView root;
  UIView* middle = root.addSubview(std::make_unique<UIView>());
  auto* responder = middle->addSubview(std::make_unique<Responder>());

  responder->gives = false;
  const bool refused = root.endEditing(true);
  responder->gives = true;
  const bool ended = root.endEditing(true);

  EXPECT_FALSE(refused);
  EXPECT_TRUE(ended);
  EXPECT_FALSE(responder->has);
}

TEST(UIView, ARecogniserKnowsItsView) {
  UIView view;
  CountingObserver observer(view);
  UIView* seen = nullptr;

  UIGestureRecognizer* recognizer =
      view.addGestureRecognizer(std::make_unique<UITapGestureRecognizer>(
          [&seen](UIGestureRecognizer& sender) { seen = sender.view(); }));
  recognizer->recognize();

  EXPECT_EQ(seen, &view);
  EXPECT_EQ(view.gestureRecognizers().size(), 1u);
  EXPECT_EQ(observer.changes, 1);
}

TEST(UIView, ARecogniserMayTakeItsOwnViewDown) {
  auto view = std::make_unique<UIView>();
  std::string after;
  UIGestureRecognizer* recognizer =
      view->addGestureRecognizer(std::make_unique<UITapGestureRecognizer>(
          [&view, &after,
           text = std::string("what the action holds is still there")](UIGestureRecognizer&) {
            view.reset();
            after = text;
          }));

  recognizer->recognize();

  EXPECT_EQ(after, "what the action holds is still there");
}

}  // namespace
}  // namespace frelta
