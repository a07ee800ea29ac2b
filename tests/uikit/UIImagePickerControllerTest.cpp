#include "uikit/UIImagePickerController.h"

#include "fake/FakePicturePicker.h"
#include "fake/FakePlatform.h"
#include "tests/uikit/KitTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class RecordingDelegate : public UIImagePickerControllerDelegate {
 public:
  void didFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                     const UIImagePickerControllerInfo& info) override {
    infos.push_back(info);
    busy.push_back(static_cast<UIImagePickerControllerView&>(picker.view()).isBusy());
    picker.dismissItselfAnimated(false);
  }
  std::vector<UIImagePickerControllerInfo> infos;
  std::vector<bool> busy;
};

class UIImagePickerControllerTest : public KitTest {
 protected:
  UIImagePickerControllerTest() {
    UIKitServices::install({.text = &measurer, .pictures = &pictures});
    window.setFrame({0, 0, 400, 600});
    window.setRootViewController(screen);
    picker->setDelegate(&delegate);
  }
  auto& view() { return static_cast<UIImagePickerControllerView&>(picker->view()); }

  FakePlatform platform;
  FakePicturePicker pictures;
  RecordingDelegate delegate;
  std::shared_ptr<UIImagePickerController> picker = std::make_shared<UIImagePickerController>();
  std::shared_ptr<UIViewController> screen = std::make_shared<UIViewController>();
  UIWindow window;
  std::shared_ptr<const UIImage> picture = std::make_shared<UIImage>();
};

TEST_F(UIImagePickerControllerTest, HasThePhotoLibraryWhereThereIsAServiceForIt) {
  using enum UIImagePickerControllerSourceType;

  EXPECT_TRUE(UIImagePickerController::isSourceTypeAvailable(PhotoLibrary));
  EXPECT_FALSE(UIImagePickerController::isSourceTypeAvailable(Camera));
  pictures.available = false;
  EXPECT_FALSE(UIImagePickerController::isSourceTypeAvailable(PhotoLibrary));
  UIKitServices::install({.text = &measurer});
  EXPECT_FALSE(UIImagePickerController::isSourceTypeAvailable(PhotoLibrary));
}

TEST_F(UIImagePickerControllerTest, AsksWhenItIsPresentedAndHandsOverThePicture) {
  screen->presentViewController(picker, true);
  const bool busyWhileAsking = view().isBusy();
  pictures.choose();
  const bool busyWhileReading = view().isBusy();

  pictures.finish({picture, {}});

  EXPECT_EQ(pictures.questions, 1);
  EXPECT_FALSE(busyWhileAsking);
  EXPECT_TRUE(busyWhileReading);
  ASSERT_THAT(delegate.infos, SizeIs(1));
  EXPECT_EQ(delegate.infos[0].at(std::string(UIImagePickerControllerOriginalImage)), picture);
  EXPECT_THAT(delegate.busy, ElementsAre(true));
  EXPECT_EQ(pictures.cancellations, 0);
}

TEST_F(UIImagePickerControllerTest, HandsOverNothingWhenNothingWasChosen) {
  screen->presentViewController(picker, true);

  pictures.finish({});

  EXPECT_THAT(delegate.infos, ElementsAre(IsEmpty()));
}

TEST_F(UIImagePickerControllerTest, CancelledTakesItsQuestionBackAndHandsOverNothing) {
  screen->presentViewController(picker, true);
  pictures.choose();

  picker->userDidCancel();
  picker->userDidCancel();

  EXPECT_FALSE(pictures.isAsking());
  EXPECT_THAT(delegate.infos, ElementsAre(IsEmpty()));
}

TEST_F(UIImagePickerControllerTest, DismissedWhileAskingTakesItsQuestionBackAndSaysNothing) {
  screen->presentViewController(picker, true);

  screen->dismissViewControllerAnimated(false);

  EXPECT_FALSE(pictures.isAsking());
  EXPECT_THAT(delegate.infos, IsEmpty());
}

TEST_F(UIImagePickerControllerTest, TellsWhyThereIsNoPictureBeforeItHandsOverNothing) {
  screen->presentViewController(picker, true);
  pictures.choose();

  pictures.finish({nullptr, "Too large."});
  const auto presented = window.presentedViewControllers();
  ASSERT_THAT(presented, SizeIs(2));
  auto& alert = dynamic_cast<UIAlertController&>(*presented[1]);
  const std::string message = alert.message();
  const std::size_t before = delegate.infos.size();
  alert.userDidPressAction(*alert.actions()[0]);

  EXPECT_EQ(message, "Too large.");
  EXPECT_EQ(before, 0u);
  EXPECT_THAT(delegate.infos, ElementsAre(IsEmpty()));
  EXPECT_THAT(delegate.busy, ElementsAre(false));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(UIImagePickerControllerTest, DismissedBelowAnAlertLeavesItToBeAnswered) {
  screen->presentViewController(picker, true);
  const auto question = UIAlertController::alertControllerWithTitle("Question", "");
  picker->presentViewController(question, true);

  picker->dismissItselfAnimated(false);

  EXPECT_FALSE(pictures.isAsking());
  EXPECT_THAT(window.presentedViewControllers(), ElementsAre(question));
  EXPECT_EQ(question->presentingViewController(), screen.get());
}

TEST_F(UIImagePickerControllerTest, TellsWhyThereIsNoPictureOverAnAlertThatCameMeanwhile) {
  screen->presentViewController(picker, true);
  const auto question = UIAlertController::alertControllerWithTitle("Question", "");
  picker->presentViewController(question, true);

  pictures.finish({nullptr, "Too large."});
  ASSERT_THAT(window.presentedViewControllers(), SizeIs(3));
  auto& alert = dynamic_cast<UIAlertController&>(*window.presentedViewControllers()[2]);
  const std::string message = alert.message();
  alert.userDidPressAction(*alert.actions()[0]);

  EXPECT_EQ(message, "Too large.");
  EXPECT_THAT(delegate.infos, ElementsAre(IsEmpty()));
  EXPECT_THAT(window.presentedViewControllers(), ElementsAre(question));
}

TEST_F(UIImagePickerControllerTest, WithoutADelegateDismissesItself) {
  picker->setDelegate(nullptr);
  screen->presentViewController(picker, true);

  pictures.finish({picture, {}});

  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

}  // namespace
}  // namespace frelta
