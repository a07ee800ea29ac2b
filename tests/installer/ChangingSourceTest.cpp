#include "tests/installer/InstallerTest.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

using Reason = StyleRefusalReason;

/// A folder whose contents change between the look at it and the copying.
class ChangingSource : public InstallerTest {
 protected:
  ChangingSource() : style(folder("Sea.theme")) { write(style / "Images/Space.png", "space"); }

  /// Why it was refused when the change was made before the first file is read.
  StyleRefusal refusalAfter(const std::function<void()>& change) {
    bool hasChanged = false;
    installation.progress = [&](double) {
      if (!std::exchange(hasChanged, true)) change();
      return true;
    };
    const auto result = install(style);
    EXPECT_FALSE(std::filesystem::exists(themes() / "Sea.theme"));
    EXPECT_THAT(unfinished(), testing::IsEmpty());
    const auto* refusal = std::get_if<StyleRefusal>(&result);
    EXPECT_TRUE(refusal);
    return refusal ? *refusal : StyleRefusal{};
  }

  const std::filesystem::path style;
};

TEST_F(ChangingSource, WhoseFileGrowsIsDamaged) {
  EXPECT_THAT(refusalAfter([&] { write(style / "Images/Key.png", "keys"); }),
              refusedFor(Reason::Damaged, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFileShrinksIsDamaged) {
  EXPECT_THAT(refusalAfter([&] { write(style / "Images/Key.png", "ke"); }),
              refusedFor(Reason::Damaged, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFileGoesIsMissing) {
  EXPECT_THAT(refusalAfter([&] { std::filesystem::remove(style / "Images/Key.png"); }),
              refusedFor(Reason::Missing, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFileBecomesALinkIsNotFollowed) {
  write(sources() / "secret", "key");

  EXPECT_THAT(refusalAfter([&] {
                std::filesystem::remove(style / "Images/Key.png");
                std::filesystem::create_symlink(sources() / "secret", style / "Images/Key.png");
              }),
              refusedFor(Reason::Missing, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFolderBecomesALinkIsNotFollowed) {
  write(sources() / "secrets/Key.png", "key");

  EXPECT_THAT(refusalAfter([&] {
                std::filesystem::rename(style / "Images", style / "Away");
                std::filesystem::create_directory_symlink(sources() / "secrets", style / "Images");
              }),
              refusedFor(Reason::Missing, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFolderBecomesALinkAtAnySystemCallIsNotListedThroughIt) {
  std::filesystem::create_directories(sources() / "secrets/theirs");
  installation.source = style;
  installation.root = root();
  int swaps = 0;

  for (int at = 1; at > 0;) {
    bool hasSwapped = false;
    const auto status = waitStatusOfSteppedChild(
        [&] { return statusOfInstalling(); },
        [&](pid_t, int stop) {
          if (stop != at) return;
          std::filesystem::rename(style / "Images", sources() / "away");
          std::filesystem::create_directory_symlink(sources() / "secrets", style / "Images");
          hasSwapped = true;
        });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";

    ASSERT_FALSE(std::filesystem::exists(themes() / "Sea.theme/Images/theirs")) << at;
    if (hasSwapped) {
      std::filesystem::remove(style / "Images");
      std::filesystem::rename(sources() / "away", style / "Images");
    }
    std::filesystem::remove_all(themes() / "Sea.theme");
    swaps += hasSwapped;
    // A call has been left before the next one is entered: one of the two is enough.
    at = hasSwapped ? at + 2 : 0;
  }

  EXPECT_GT(swaps, 50);
}

TEST_F(ChangingSource, WhoseFileBecomesAPipeIsNotWaitedFor) {
  EXPECT_THAT(refusalAfter([&] {
                std::filesystem::remove(style / "Images/Key.png");
                ASSERT_EQ(::mkfifo((style / "Images/Key.png").c_str(), 0600), 0);
              }),
              refusedFor(Reason::Damaged, "Images/Key.png"));
}

TEST_F(ChangingSource, WhoseFileBecomesAFolderIsDamaged) {
  EXPECT_THAT(refusalAfter([&] {
                std::filesystem::remove(style / "Images/Key.png");
                std::filesystem::create_directory(style / "Images/Key.png");
              }),
              refusedFor(Reason::Damaged, "Images/Key.png"));
}

TEST_F(ChangingSource, ThatIsMovedAwayIsStillTheSame) {
  installation.progress = [&](double) {
    if (std::filesystem::exists(style)) std::filesystem::rename(style, sources() / "moved");
    return true;
  };

  EXPECT_EQ(installedName(style), "Sea.theme");
}

}  // namespace
}  // namespace frelta
