#include "tests/installer/InstallerTest.h"

namespace frelta {
namespace {

using Reason = StyleRefusalReason;

class HostileZip : public InstallerTest {};

TEST_F(HostileZip, WithAnAbsolutePathIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", "k").add("/tmp/frelta-evil", "evil"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::LeavesFolder, "/tmp/frelta-evil"));
  EXPECT_FALSE(std::filesystem::exists("/tmp/frelta-evil"));
}

TEST_F(HostileZip, ThatClimbsOutOfTheFolderIsRefused) {
  for (const char* path :
       {"../evil", "Images/../../evil", "Images/..", "Images/./a", "Images//a"}) {
    const std::string zip =
        put("a.zip", GeneratedZip().add("Images/Key.png", "k").add(path, "evil"));

    const StyleRefusal refused = refusal(zip);

    EXPECT_THAT(refused, refusedFor(Reason::LeavesFolder, path));
  }
}

TEST_F(HostileZip, WithBackslashesIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", "k").add("..\\..\\evil", "evil"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::NameNotText));
}

TEST_F(HostileZip, WithALinkIsRefused) {
  const std::string zip = put("a.zip", GeneratedZip()
                                           .add("Images/Key.png", "k")
                                           .add("Images/out", "/etc", {.mode = 0120777, .size = {}})
                                           .add("Images/out/evil", "evil"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Link, "Images/out"));
}

TEST_F(HostileZip, WithADeviceIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/null", "", {.mode = 0020666, .size = {}}));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Device, "Images/null"));
}

TEST_F(HostileZip, ThatSaysItUnpacksToTenGigabytesIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add(
                       "Images/zeros", std::string(10'000'000, '\0'),
                       {.method = GeneratedZip::kDeflated, .size = std::uint64_t{10'000'000'000}}));

  const StyleRefusal refused = refusal(zip);

  EXPECT_LT(std::filesystem::file_size(zip), 11'000);
  EXPECT_THAT(refused, refusedFor(Reason::TooLarge));
}

TEST_F(HostileZip, ThatUnpacksToMoreThanItSaysIsRefused) {
  const std::string zip = put(
      "a.zip", GeneratedZip().add("Images/zeros", std::string(10'000'000, '\0'),
                                  {.method = GeneratedZip::kDeflated, .size = std::uint64_t{100}}));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Damaged, "Images/zeros"));
}

TEST_F(HostileZip, WhoseEntriesShareTheirBytesIsRefused) {
  GeneratedZip generated;
  generated.add("Images/0", std::string(10'000'000, '\0'),
                {.method = GeneratedZip::kDeflated, .size = {}});
  for (int i = 1; i < 1000; ++i) generated.addLastAgain("Images/" + std::to_string(i));
  const std::string zip = put("a.zip", generated);

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Damaged));
}

TEST_F(HostileZip, WithMoreEntriesThanItsPlainRecordCanTellIsRefused) {
  GeneratedZip generated;
  for (int i = 0; i < 70'000; ++i) generated.add("Images/" + std::to_string(i), {});
  const std::string zip = put("a.zip", generated);

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::TooManyEntries));
}

TEST_F(HostileZip, WhoseEndHidesHowManyEntriesItHasIsRefused) {
  GeneratedZip generated;
  for (int i = 0; i < 20'000; ++i) generated.add("Images/" + std::to_string(i), {});
  std::string bytes = generated.bytes();
  constexpr std::size_t kEndRecord = 22;
  for (const std::size_t count : {8, 10})
    bytes.replace(bytes.size() - kEndRecord + count, 2, std::string("\1\0", 2));
  write(sources() / "a.zip", bytes);

  const StyleRefusal refused = refusal(sources() / "a.zip");

  EXPECT_THAT(refused, refusedFor(Reason::Damaged));
}

TEST_F(HostileZip, WithNamesThatAreNotUTF8IsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", "k").add("Images/\xff\xfe", "x"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::NameNotText));
}

TEST_F(HostileZip, WithControlCharactersInANameIsRefused) {
  const std::string zip = put("a.zip", GeneratedZip().add("Images/a\n\x1b[2J", "x"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::NameNotText));
}

TEST_F(HostileZip, ThatOnlyHoldsAnotherZipIsNoStyle) {
  const std::string inner = GeneratedZip().add("Inner.theme/Images/Key.png", "k").bytes();
  const std::string zip = put("a.zip", GeneratedZip().add("Inner.theme.zip", inner));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::NotAStyle));
}

TEST_F(HostileZip, InAStyleIsAFileLikeAnyOther) {
  const std::string inner = GeneratedZip().add("../evil", "evil").bytes();
  const std::string zip =
      put("a.zip", GeneratedZip().add("A.theme/Images/Key.png", "k").add("A.theme/b.zip", inner));

  const std::string name = installedName(zip);

  EXPECT_EQ(name, "A.theme");
  EXPECT_EQ(read(themes() / "A.theme/b.zip"), inner);
}

TEST_F(HostileZip, CutShortAnywhereIsRefused) {
  const std::string whole =
      GeneratedZip().add("A.theme/Images/Key.png", "key").add("A.theme/Icon.png", "icon").bytes();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    write(sources() / "a.zip", std::string_view(whole).substr(0, length));

    const StyleRefusal refused = refusal(sources() / "a.zip");

    EXPECT_THAT(refused.reason, testing::AnyOf(Reason::Damaged, Reason::NotAFolderOrZip)) << length;
  }
}

TEST_F(HostileZip, WithAnyOneByteChangedIsRefusedOrInstalledWhole) {
  const std::string whole =
      GeneratedZip().add("A.theme/Images/Key.png", "key").add("A.theme/Icon.png", "icon").bytes();
  int refused = 0;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string changed = whole;
    changed[i] = static_cast<char>(changed[i] ^ 0x55);
    write(sources() / "a.zip", changed);
    const auto before = everything();

    const auto result = install(sources() / "a.zip");

    if (const auto* style = std::get_if<InstalledStyle>(&result)) {
      std::filesystem::remove_all(themes() / style->name);
    } else {
      ++refused;
    }
    EXPECT_EQ(everything(), before) << i;
  }
  EXPECT_GT(refused, static_cast<int>(whole.size()) / 2);
}

TEST_F(HostileZip, ThatIsEncryptedIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", std::string(40, 'x'),
                                      {.flags = GeneratedZip::kEncrypted, .size = {}}));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Encrypted, "Images/Key.png"));
}

TEST_F(HostileZip, PackedAnUnusualWayIsRefused) {
  constexpr std::uint16_t kBzip2 = 12;
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", "BZh9", {.method = kBzip2, .size = {}}));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::UnknownCompression, "Images/Key.png"));
}

TEST_F(HostileZip, WithTwoEntriesOfOneNameIsRefused) {
  const std::string zip =
      put("a.zip", GeneratedZip().add("Images/Key.png", "one").add("Images/Key.png", "two"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::Duplicate));
}

TEST_F(HostileZip, WithAFileAndAFolderOfOneNameIsRefused) {
  const std::string fileFirst =
      put("a.zip", GeneratedZip().add("Images/a", "file").add("Images/a/b", "below it"));
  const std::string folderFirst =
      put("b.zip", GeneratedZip().add("Images/a/b", "below it").add("Images/a", "file"));

  EXPECT_THAT(refusal(fileFirst), refusedFor(Reason::Duplicate, "Images/a/b"));
  EXPECT_THAT(refusal(folderFirst), refusedFor(Reason::Duplicate, "Images/a"));
}

TEST_F(HostileZip, TooDeepIsRefused) {
  std::string path = "Images";
  for (int i = 0; i < 16; ++i) path += "/a";
  const std::string zip = put("a.zip", GeneratedZip().add(path, "deep"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::TooDeep, path));
}

TEST_F(HostileZip, WithANameTooLongForTheFileSystemIsRefused) {
  const std::string path = "Images/" + std::string(256, 'a');
  const std::string zip = put("a.zip", GeneratedZip().add(path, "x"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::NameTooLong, path));
}

TEST_F(HostileZip, WithAHiddenStyleIsRefused) {
  const std::string zip = put("a.zip", GeneratedZip().add(".hidden.theme/Images/Key.png", "k"));

  const StyleRefusal refused = refusal(zip);

  EXPECT_THAT(refused, refusedFor(Reason::BadStyleName, ".hidden.theme"));
}

}  // namespace
}  // namespace frelta
