#include "pages/FreltaImageCell.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "pages/PicturePreview.h"
#include "tests/pages/PagesTest.h"
#include "uikit/UIWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FreltaImageCellTest : public PagesTest {
 protected:
  FreltaImageCellTest() {
    describeRoot({row("PSLinkCell", "FreltaImageCell", {{"cellClass", "FreltaImageCell"}})});
  }
  void open(Dictionary settings = {}) {
    settings.insert_or_assign("BackgroundMode", 2);
    putSettings(settings);
    page = showRoot();
    window.setFrame({0, 0, 320, 600});
    window.setRootViewController(navigation);
  }
  FreltaImageCell& imageCell() { return *cell<FreltaImageCell>(*page, "FreltaImageCell"); }
  const UIImage* shown() { return imageCell().imageView()->image().get(); }
  static std::shared_ptr<const UIImage> picture(int width, int height) {
    const std::size_t size = std::size_t{4} * static_cast<std::size_t>(width * height);
    const auto pixels = std::make_shared<std::vector<std::uint8_t>>(size, 255);
    return std::make_shared<UIImage>(width, height, 1,
                                     std::shared_ptr<const std::uint8_t>(pixels, pixels->data()));
  }
  void putPicture(std::string_view where, int width, int height) {
    platform.put(where, UIImagePNGRepresentation(*picture(width, height)).value());
  }
  const std::vector<std::string>& posted() const { return platform.notifications.posted; }

  const std::string path{kBackgroundImagePath};
  std::shared_ptr<freltaprefsRootListController> page;
  UIWindow window;
};

TEST_F(FreltaImageCellTest, ATapPresentsAPickerFromTheRootPage) {
  open();

  tap(*page, "FreltaImageCell");

  ASSERT_THAT(window.presentedViewControllers(), SizeIs(1));
  const auto* picker =
      dynamic_cast<UIImagePickerController*>(window.presentedViewControllers()[0].get());
  ASSERT_TRUE(picker);
  EXPECT_EQ(picker->sourceType(), UIImagePickerControllerSourceType::PhotoLibrary);
  EXPECT_EQ(picker->delegate(), &imageCell());
  EXPECT_EQ(pictures.questions, 1);
  EXPECT_THAT(posted(), IsEmpty());
}

TEST_F(FreltaImageCellTest, ATapDoesNothingWithoutAPhotoLibrary) {
  open();
  pictures.available = false;

  tap(*page, "FreltaImageCell");

  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
  EXPECT_EQ(pictures.questions, 0);
}

TEST_F(FreltaImageCellTest, ATapShowsNothingWhileThereIsNoRootPage) {
  open();
  FreltaImageCell& cell = imageCell();
  page->viewWillDisappear(false);

  cell.openImagePicker();

  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
  EXPECT_EQ(pictures.questions, 0);
}

TEST_F(FreltaImageCellTest, APickedPictureIsStoredAsPNGNamedInTheSettingsAndToldOnce) {
  open({{"HideKeyCaps", 0}, {"Foreign", Array{1, "two"}}});
  const Dictionary before = settingsFile();
  tap(*page, "FreltaImageCell");
  platform.files.resetCalls();

  pictures.finish({picture(6, 4), {}});
  layout();

  Dictionary expected = before;
  expected["backgroundImage"] = path;
  EXPECT_EQ(settingsFile(), expected);
  const auto stored = UIImage::imageWithContentsOfFile(path);
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->size(), (CGSize{6, 4}));
  EXPECT_TRUE(platform.get(path).starts_with("\x89PNG"));
  EXPECT_EQ(platform.files.count(Operation::Write), 2u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{6, 4}));
}

TEST_F(FreltaImageCellTest, WhoeverHearsOfAPickFindsThePictureAndItsNameAndThePickerStillOpen) {
  open();
  tap(*page, "FreltaImageCell");
  int heard = 0;
  lookAtPosts([&](std::string_view name) {
    ++heard;
    EXPECT_EQ(name, "com.tarno.frelta.refresh");
    EXPECT_EQ(settingsFile().at("backgroundImage"), PropertyListValue(path));
    const auto stored = UIImage::imageWithContentsOfFile(path);
    EXPECT_TRUE(stored && stored->size() == (CGSize{6, 4}));
    EXPECT_THAT(window.presentedViewControllers(), SizeIs(1));
    EXPECT_EQ(shown(), nullptr);
  });

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(heard, 1);
}

TEST_F(FreltaImageCellTest, ThePickerComesWithAnimationAndGoesWithoutBeforeThePictureShows) {
  class NotingPage : public freltaprefsRootListController {
   public:
    void presentViewController(std::shared_ptr<UIViewController> controller,
                               bool animated) override {
      presentedAnimated.push_back(animated);
      freltaprefsRootListController::presentViewController(std::move(controller), animated);
    }
    std::vector<bool> presentedAnimated;
  };
  class NotingPicker : public UIImagePickerController {
   public:
    void viewWillDisappear(bool animated) override {
      wentAnimated.push_back(animated);
      UIImagePickerController::viewWillDisappear(animated);
      if (atGoing) atGoing();
    }
    std::vector<bool> wentAnimated;
    std::function<void()> atGoing;
  };
  putSettings({{"BackgroundMode", 2}});
  const auto noting = std::make_shared<NotingPage>();
  page = noting;
  show(page);
  window.setRootViewController(navigation);

  tap(*page, "FreltaImageCell");
  page->dismissViewControllerAnimated(false);
  const auto picker = std::make_shared<NotingPicker>();
  page->presentViewController(picker, false);
  picker->atGoing = [&] { EXPECT_EQ(shown(), nullptr); };
  imageCell().didFinishPickingMediaWithInfo(
      *picker, {{std::string(UIImagePickerControllerOriginalImage), picture(6, 4)}});

  EXPECT_THAT(noting->presentedAnimated, ElementsAre(true, false));
  EXPECT_THAT(picker->wentAnimated, ElementsAre(false));
  EXPECT_TRUE(shown());
}

TEST_F(FreltaImageCellTest, AnotherPictureReplacesTheOldFile) {
  putPicture(path, 9, 9);
  open({{"backgroundImage", path}});
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(UIImage::imageWithContentsOfFile(path)->size(), (CGSize{6, 4}));
  EXPECT_EQ(shown()->size(), (CGSize{6, 4}));
}

TEST_F(FreltaImageCellTest, APickedPictureGetsItsPlaceInTheRow) {
  open();
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(6, 4), {}});
  layout();

  EXPECT_EQ(imageCell().imageView()->frame().size, (CGSize{6, 4}));
}

TEST_F(FreltaImageCellTest, ThePickLeavesTheManagersCacheAsItIs) {
  open();
  FreltaPreferencesManager::getPrefs();
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(FreltaPreferencesManager::getPrefForKey("backgroundImage"), nullptr);
}

TEST_F(FreltaImageCellTest, WithoutAPictureNothingIsWrittenButTheRefreshIsPosted) {
  open();
  tap(*page, "FreltaImageCell");
  platform.files.resetCalls();

  pictures.finish({});

  EXPECT_EQ(platform.files.count(Operation::Write), 0u);
  EXPECT_EQ(platform.files.count(Operation::CreateDirectory), 0u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(FreltaImageCellTest, AMissingFolderIsMade) {
  open();
  ASSERT_FALSE(platform.files.directoryExistsAtPath(kUserImagesFolder));
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(6, 4), {}});

  EXPECT_TRUE(platform.files.fileExistsAtPath(path));
}

TEST_F(FreltaImageCellTest, AWriteThatFailsIsPassedOverAndLeavesTheOldPicture) {
  putPicture(path, 9, 9);
  open({{"backgroundImage", path}});
  const std::string before = platform.get(path);
  tap(*page, "FreltaImageCell");
  platform.files.fail(Operation::Write);
  platform.files.fail(Operation::CreateDirectory);

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(platform.get(path), before);
  EXPECT_EQ(shown()->size(), (CGSize{9, 9}));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(FreltaImageCellTest, OnlyThePictureFailingToBeWrittenStillNamesItInTheSettings) {
  open();
  // A folder in the file's place, as a full or read-only disk would, refuses the one write.
  std::filesystem::create_directories(platform.hostPath(path) / "in the way");
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(settingsFile().at("backgroundImage"), PropertyListValue(path));
  EXPECT_EQ(shown(), nullptr);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(FreltaImageCellTest, ShowsThePictureThatTheSettingsFileNamesFromTheStart) {
  putPicture("/Library/Frelta/UserImages/other.png", 30, 20);

  open({{"backgroundImage", "/Library/Frelta/UserImages/other.png"}});

  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{30, 20}));
}

TEST_F(FreltaImageCellTest, KeepsWhatItShowsWhenThePictureCannotBeRead) {
  putPicture(path, 9, 9);
  open({{"backgroundImage", path}});
  const UIImage* before = shown();
  const auto named = [&](const PropertyListValue& value) {
    putSettings({{"BackgroundMode", 2}, {"backgroundImage", value}});
    imageCell().loadImageFromDict();
    return shown();
  };
  platform.put("/truncated.png", platform.get(path).substr(0, 40));
  platform.put("/empty.png", "");
  platform.put("/text.png", "no picture");
  std::filesystem::create_directory(platform.hostPath("/folder.png"));
  ASSERT_EQ(::mkfifo(platform.hostPath("/fifo.png").c_str(), 0600), 0);
  std::filesystem::create_symlink("/etc/hostname", platform.hostPath("/absolute.png"));

  for (const char* bad : {"/truncated.png", "/empty.png", "/text.png", "/folder.png", "/fifo.png",
                          "/absolute.png", "/missing.png", "../../../etc/hostname", "", "/"}) {
    EXPECT_EQ(named(bad), before) << bad;
  }
  EXPECT_EQ(named(7), before);
  EXPECT_EQ(named(Array{path}), before);
  putSettings({{"BackgroundMode", 2}});
  imageCell().loadImageFromDict();
  EXPECT_EQ(shown(), before);
}

TEST_F(FreltaImageCellTest, IsItsOwnTargetAndKeepsItsOptions) {
  open();
  FreltaImageCell& cell = imageCell();

  cell.setOptions(Dictionary{{"a", 1}});

  EXPECT_EQ(&cell.target(), &cell);
  EXPECT_EQ(&cell.cellTarget(), &cell);
  EXPECT_TRUE(cell.action());
  EXPECT_TRUE(cell.specifier()->buttonAction());
  EXPECT_EQ(cell.options(), (Dictionary{{"a", 1}}));
}

TEST_F(FreltaImageCellTest, ARowThatOutlivesItsCellDoesNothing) {
  const auto row = std::make_shared<PSSpecifier>(PSCellType::PSLinkCell, "row");
  open();
  {
    UIView superview;
    superview.addSubview(std::make_unique<FreltaImageCell>(UITableViewCellStyle::Default, "", row));
  }

  row->buttonAction()();

  EXPECT_EQ(pictures.questions, 0);
}

TEST_F(FreltaImageCellTest, APickThatOutlivesItsCellIsStoredToldAndShownInTheRowThatIsThereNow) {
  open({{"HideKeyCaps", 0}});
  tap(*page, "FreltaImageCell");
  const std::weak_ptr<const void> asked = imageCell().lifetime();
  page->reloadSpecifiers();
  layout();
  layout();
  ASSERT_TRUE(asked.expired());

  pictures.finish({picture(6, 4), {}});
  layout();

  EXPECT_EQ(settingsFile(),
            (Dictionary{{"BackgroundMode", 2}, {"HideKeyCaps", 0}, {"backgroundImage", path}}));
  EXPECT_TRUE(platform.files.fileExistsAtPath(path));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{6, 4}));
}

TEST_F(FreltaImageCellTest, APickReachesTheRowAlsoWhileTheCellThatAskedWaitsToGo) {
  open();
  tap(*page, "FreltaImageCell");
  const FreltaImageCell* asked = &imageCell();
  page->reloadSpecifiers();
  window.layoutIfNeeded();
  ASSERT_NE(&imageCell(), asked);

  pictures.finish({picture(6, 4), {}});

  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{6, 4}));
}

TEST_F(FreltaImageCellTest, APickIsStoredAndToldAlsoWhenTheRowIsGone) {
  open();
  tap(*page, "FreltaImageCell");
  putSettings({{"BackgroundMode", 0}});
  page->reloadSpecifiers();
  layout();
  layout();
  ASSERT_EQ(cell<FreltaImageCell>(*page, "FreltaImageCell"), nullptr);

  pictures.finish({picture(6, 4), {}});

  EXPECT_EQ(settingsFile(), (Dictionary{{"BackgroundMode", 0}, {"backgroundImage", path}}));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(FreltaImageCellTest, ACancelledPickIsToldAlsoWhenItsCellIsGone) {
  open();
  tap(*page, "FreltaImageCell");
  page->reloadSpecifiers();
  layout();
  layout();
  platform.files.resetCalls();

  pictures.finish({});

  EXPECT_EQ(platform.files.count(Operation::Write), 0u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(FreltaImageCellTest, ReadsThePictureBesideTheMainThreadAndShowsItWhenItIsThere) {
  platform.useWorkQueue();
  putPicture("/never-shown.png", 30, 20);
  open({{"backgroundImage", "/never-shown.png"}});
  const bool isReadAtOnce = std::ranges::any_of(
      platform.files.calls(), [](const auto& call) { return call.path == "/never-shown.png"; });
  const UIImage* atFirst = shown();

  while (platform.workQueue.runNext()) {
  }

  EXPECT_FALSE(isReadAtOnce);
  EXPECT_EQ(atFirst, nullptr);
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{30, 20}));
}

TEST_F(FreltaImageCellTest, ShowsWhatWasLastKnownOfThePictureWhileItIsReadAnew) {
  putPicture("/other.png", 31, 21);
  open({{"backgroundImage", "/other.png"}});
  platform.useWorkQueue();

  page->reloadSpecifiers();
  layout();

  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{31, 21}));
  EXPECT_EQ(platform.workQueue.waiting(), 1U);
}

TEST_F(FreltaImageCellTest, TakesBackWhatStoodInForAPictureThatCannotBeReadAnyMore) {
  putPicture("/other.png", 32, 22);
  putPicture(path, 9, 9);
  open({{"backgroundImage", "/other.png"}});
  putSettings({{"BackgroundMode", 2}, {"backgroundImage", path}});
  imageCell().loadImageFromDict();
  keepPreview("/other.png", "other bytes", *picture(32, 22));
  std::filesystem::remove(platform.hostPath("/other.png"));
  platform.useWorkQueue();
  putSettings({{"BackgroundMode", 2}, {"backgroundImage", "/other.png"}});

  imageCell().loadImageFromDict();
  imageCell().loadImageFromDict();
  const CGSize meanwhile = shown()->size();
  while (platform.workQueue.runNext()) {
  }

  EXPECT_EQ(meanwhile, (CGSize{32, 22}));
  EXPECT_EQ(shown()->size(), (CGSize{9, 9}));
}

TEST_F(FreltaImageCellTest, AnAnswerThatIsNoLongerWantedChangesNothing) {
  platform.useWorkQueue();
  putPicture("/other.png", 33, 23);
  open({{"backgroundImage", "/other.png"}});

  imageCell().setCurrentImage(picture(5, 5));
  while (platform.workQueue.runNext()) {
  }

  EXPECT_EQ(shown()->size(), (CGSize{5, 5}));
}

}  // namespace
}  // namespace frelta
