#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakeTextMeasurer.h"
#include "uikit/UIControl.h"
#include "uikit/UIKitServices.h"
#include "uikit/UIView.h"

namespace frelta {

/// The kit with text of fixed widths.
class KitTest : public testing::Test {
 protected:
  KitTest() { UIKitServices::install({.text = &measurer}); }

  FakeTextMeasurer measurer;
};

/// Counts what a view tells of itself.
class CountingObserver : public UIViewObserver {
 public:
  explicit CountingObserver(UIView& view) : view_(&view) { view.setObserver(this); }
  ~CountingObserver() override {
    if (view_) view_->setObserver(nullptr);
  }
  CountingObserver(const CountingObserver&) = delete;
  CountingObserver& operator=(const CountingObserver&) = delete;

  void viewDidChange(UIView&) override { ++changes; }
  void viewDidChangeSubviews(UIView&) override { ++subviewChanges; }
  void viewNeedsLayout(UIView&) override { ++layoutRequests; }
  void viewWillBeDestroyed(UIView&) override {
    view_ = nullptr;
    ++destructions;
  }

  int changes = 0;
  int subviewChanges = 0;
  int layoutRequests = 0;
  int destructions = 0;

 private:
  UIView* view_;  // null once it is gone
};

/// Counts one control's events.
inline void countEvents(UIControl& control, unsigned events, int& count) {
  control.addTarget(
      &count, "count", [&count](UIControl&) { ++count; }, events);
}

/// Counts its layout passes.
class LayoutCountingView : public UIView {
 public:
  using UIView::UIView;
  void layoutSubviews() override { ++passes; }
  int passes = 0;
};

}  // namespace frelta
