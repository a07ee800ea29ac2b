#include "app/FailureText.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "device/Paths.h"

namespace frelta {
namespace {

using Operation = Failure::Operation;

std::string textOf(Operation operation, std::string_view subject, int error) {
  return textOfFailure({operation, std::string(subject), error}).toStdString();
}

TEST(FailureText, SaysWhyNothingWasSaved) {
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, ENOSPC), "Not saved: the disk is full.");
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, EDQUOT), "Not saved: the disk is full.");
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, EROFS),
            "Not saved: the disk can only be read.");
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, EACCES),
            "Not saved: you may not do that there.");
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, EPERM),
            "Not saved: you may not do that there.");
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, EIO), "Not saved: the disk does not work.");
  EXPECT_EQ(textOf(Operation::CreateFolder, kPresetsFolder, ENOTDIR),
            "Not saved: something else is in its place.");
}

TEST(FailureText, GivesNoReasonWhereThereIsNone) {
  EXPECT_EQ(textOf(Operation::Write, kSettingsPath, 0), "Not saved.");
  EXPECT_EQ(textOf(Operation::Remove, kSettingsPath, 0), "Not deleted.");
}

TEST(FailureText, GivesTheSystemsReasonWhereItHasNoneOfItsOwn) {
  EXPECT_EQ(textOf(Operation::Remove, kSettingsPath, ELOOP),
            "Not deleted: Too many levels of symbolic links.");
}

TEST(FailureText, SaysWhatCannotBeRead) {
  EXPECT_EQ(textOf(Operation::Read, kSettingsPath, EACCES),
            "The settings file cannot be read: you may not do that there.");
  EXPECT_EQ(textOf(Operation::Read, "/Library/Frelta/Presets/My night.plist", EFBIG),
            "“My night” cannot be read: the file is too large.");
  EXPECT_EQ(textOf(Operation::Understand, "/Library/Frelta/Presets/My night.plist", 0),
            "“My night” cannot be read: the file is damaged.");
  EXPECT_EQ(
      textOf(Operation::Understand, kSettingsPath, 0),
      "The settings file is damaged and cannot be read. It is kept when you change a setting.");
}

TEST(FailureText, LetsNoNameForgeASentence) {
  const std::string name = "x\n\nDisk full. Pay " + std::string(200, '1');

  const std::string text = textOf(Operation::Understand, "/presets/" + name + ".plist", 0);

  EXPECT_EQ(text.find('\n'), std::string::npos);
  EXPECT_LT(text.size(), 130U);
  EXPECT_TRUE(text.ends_with("” cannot be read: the file is damaged."));
}

TEST(FailureText, SaysWhatDoesNotStartOrOpen) {
  EXPECT_EQ(textOf(Operation::Start, "/usr/bin/killall", ENOENT),
            "“killall” cannot be started: it is missing.");
  EXPECT_EQ(textOf(Operation::OpenAddress, "https://frelta.tarno.example", 0),
            "Nothing here opens https://frelta.tarno.example.");
}

}  // namespace
}  // namespace frelta
