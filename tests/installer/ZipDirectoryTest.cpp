#include <fcntl.h>

#include "installer/ZipDirectory.h"
#include "linux/FileDescriptor.h"
#include "tests/installer/InstallerTest.h"

namespace frelta {
namespace {

using Reason = StyleRefusalReason;
using End = GeneratedZip::EndClaims;

class ZipDirectoryTest : public InstallerTest {
 protected:
  using Found = std::variant<ZipDirectory, StyleRefusal>;

  Found find(std::string_view bytes) {
    write(sources() / "a.zip", bytes);
    const FileDescriptor file(::open((sources() / "a.zip").c_str(), O_RDONLY | O_CLOEXEC));
    return findZipDirectory(file.get(), installation.limits);
  }
  /// The reason for which it was refused; nothing when it was found.
  std::optional<Reason> refused(std::string_view bytes) {
    const Found found = find(bytes);
    const auto* refusal = std::get_if<StyleRefusal>(&found);
    return refusal ? std::optional(refusal->reason) : std::nullopt;
  }

  static GeneratedZip style(int files = 2) {
    GeneratedZip zip;
    for (int i = 0; i < files; ++i) zip.add("A.theme/Images/" + std::to_string(i), "key");
    return zip;
  }
  /// Names of one hash, as libzip works it out: "aB" and "b!" are alike to it.
  static GeneratedZip alike(unsigned files) {
    GeneratedZip zip;
    for (unsigned i = 0; i < files; ++i) {
      std::string name = "Images/";
      for (int bit = 0; bit < 16; ++bit) name += i >> bit & 1 ? "aB" : "b!";
      zip.add(name, {});
    }
    return zip;
  }
};

TEST_F(ZipDirectoryTest, IsFoundWithItsPlaceAndSize) {
  const std::string bytes = style(3).bytes();

  const Found found = find(bytes);

  const auto& directory = std::get<ZipDirectory>(found);
  EXPECT_EQ(directory.entries, 3U);
  EXPECT_EQ(bytes.substr(directory.offset, directory.list.size()), directory.list);
  EXPECT_EQ(directory.offset + directory.list.size() + 22, bytes.size());
}

TEST_F(ZipDirectoryTest, WithANameThatALibraryWouldCutIsRefused) {
  GeneratedZip zip = style();
  zip.add(std::string("A.theme/Images/\0x", 17), "key");

  EXPECT_EQ(refused(zip.bytes()), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, OfAnArchiveWithACommentIsFound) {
  for (const std::size_t size : {1U, 21U, 0xffffU}) {
    write(sources() / "a.zip", style().bytes({.comment = std::string(size, 'c')}));

    EXPECT_EQ(installedName(sources() / "a.zip"), "A.theme") << size;
    std::filesystem::remove_all(themes() / "A.theme");
  }
}

TEST_F(ZipDirectoryTest, ThatIsToldOfAsInLargeArchivesIsFound) {
  write(sources() / "a.zip", style().bytes({.comment = std::string(0xffff, 'c'), .large = true}));
  write(sources() / "b.zip",
        GeneratedZip().add("B.theme/Images/a", "x").bytes({.large = true, .plainEntries = 1}));

  EXPECT_EQ(installedName(sources() / "a.zip"), "A.theme");
  EXPECT_EQ(installedName(sources() / "b.zip"), "B.theme");
}

TEST_F(ZipDirectoryTest, OfEntriesWithLongNamesFieldsAndCommentsIsFound) {
  // A field that no reader knows: its number, its length, its bytes.
  const std::string field = std::string("BB\x28\x01", 4) + std::string(0x128, 'f');
  const std::string name = "A.theme/Images/" + std::string(250, 'n');
  const GeneratedZip zip =
      GeneratedZip()
          .add(name, "key", {.size = {}, .extra = field})
          .add("A.theme/b", "x", {.size = {}, .comment = std::string(300, 'c')})
          .add("A.theme/c", "y", {.size = {}, .extra = field, .comment = "c"});

  const Found found = find(zip.bytes());

  EXPECT_EQ(std::get<ZipDirectory>(found).entries, 3U);
  EXPECT_EQ(installedName(sources() / "a.zip"), "A.theme");
}

TEST_F(ZipDirectoryTest, OfAnEntryWithoutANameIsFound) {
  EXPECT_EQ(refused(GeneratedZip().add("", "x").bytes()), std::nullopt);
}

TEST_F(ZipDirectoryTest, BehindAnotherZipInTheStyleIsTheArchivesOwn) {
  const std::string inner = alike(3).bytes();
  write(sources() / "a.zip",
        GeneratedZip().add("A.theme/Images/a", "x").add("A.theme/b.zip", inner).bytes());

  EXPECT_EQ(installedName(sources() / "a.zip"), "A.theme");
  EXPECT_EQ(read(themes() / "A.theme/b.zip"), inner);
}

TEST_F(ZipDirectoryTest, WithASecondEndInTheCommentIsRefused) {
  const std::string other = GeneratedZip().bytes();

  EXPECT_EQ(refused(style().bytes({.comment = other})), Reason::Damaged);
  EXPECT_EQ(refused(style().bytes({.comment = "c" + other})), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, WithThousandsOfEndsInTheCommentIsRefused) {
  // Each reaches to the end, and for each the list would be read again.
  std::string comment;
  while (comment.size() + 22 <= 0xffff) comment = GeneratedZip().bytes({.comment = comment});

  EXPECT_EQ(refused(style().bytes({.comment = comment})), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, WithManyNamesThatAreAlikeToTheReaderIsRefused) {
  // The plain record tells of one, the large one of all.
  EXPECT_EQ(refused(alike(40'000).bytes({.large = true})), Reason::TooManyEntries);
  EXPECT_EQ(refused(alike(40'000).bytes({.large = true, .plainEntries = 1})), Reason::Damaged);
  // Neither tells of them.
  EXPECT_EQ(refused(alike(40'000).bytes({.entriesHere = 1, .entries = 1})), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, OfAsManyEntriesAsMayBeIsTaken) {
  installation.limits.entries = 3;

  EXPECT_EQ(refused(style(3).bytes()), std::nullopt);
  EXPECT_EQ(refused(style(4).bytes()), Reason::TooManyEntries);
  EXPECT_EQ(refused(style(4).bytes({.entriesHere = 3, .entries = 3})), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, OfMoreEntriesThanAByteCountsIsTaken) {
  EXPECT_EQ(refused(style(300).bytes()), std::nullopt);
  EXPECT_EQ(refused(style(300).bytes({.large = true})), std::nullopt);
}

TEST_F(ZipDirectoryTest, OfAsManyBytesAsMayBeIsTaken) {
  const std::string bytes = style(3).bytes();
  const auto list = std::get<ZipDirectory>(find(bytes)).list.size();

  installation.limits.listBytes = list;
  EXPECT_EQ(refused(bytes), std::nullopt);
  installation.limits.listBytes = list - 1;
  EXPECT_EQ(refused(bytes), Reason::TooManyEntries);
}

TEST_F(ZipDirectoryTest, ThatIsNotWhatTheEndSaysIsRefused) {
  const std::string plain = style().bytes();
  const auto whole = std::get<ZipDirectory>(find(plain));
  const std::uint64_t bytes = whole.list.size(), offset = whole.offset;

  for (const bool large : {false, true}) {
    for (const End& claims :
         {End{.disk = 1}, End{.entriesHere = 1}, End{.entries = 1}, End{.entries = 3},
          End{.entriesHere = 1, .entries = 1}, End{.entriesHere = 3, .entries = 3},
          End{.listBytes = bytes - 1}, End{.listBytes = bytes + 1}, End{.listBytes = 0},
          End{.listBytes = bytes / 2}, End{.listOffset = offset - 1}, End{.listOffset = offset + 1},
          End{.listOffset = 0}, End{.listOffset = 0xfffffff0}}) {
      End claimed = claims;
      claimed.large = large;
      EXPECT_EQ(refused(style().bytes(claimed)), Reason::Damaged) << large;
    }
  }
}

TEST_F(ZipDirectoryTest, ThatTheEndSaysIsFarTooLargeOrFarAwayIsRefused) {
  const std::string plain = style().bytes();
  const auto whole = std::get<ZipDirectory>(find(plain));
  const std::uint64_t bytes = whole.list.size(), offset = whole.offset;
  // The uppermost byte of each field alone.
  constexpr std::uint64_t kPlain = std::uint64_t{1} << 24, kLarge = std::uint64_t{1} << 56;

  EXPECT_EQ(refused(style().bytes({.listBytes = bytes + kPlain})), Reason::TooManyEntries);
  EXPECT_EQ(refused(style().bytes({.listOffset = offset + kPlain})), Reason::Damaged);
  for (const End& claims :
       {End{.entriesHere = 2 + kLarge, .large = true}, End{.entries = 2 + kLarge, .large = true},
        End{.listOffset = offset + kLarge, .large = true}})
    EXPECT_EQ(refused(style().bytes(claims)), Reason::Damaged);
  EXPECT_EQ(refused(style().bytes({.listBytes = bytes + kLarge, .large = true})),
            Reason::TooManyEntries);
}

TEST_F(ZipDirectoryTest, OfWhichTheTwoRecordsDisagreeIsRefused) {
  const std::string plain = style().bytes();
  const auto whole = std::get<ZipDirectory>(find(plain));

  EXPECT_EQ(refused(style().bytes({.large = true,
                                   .plainEntries = 2,
                                   .plainListBytes = whole.list.size(),
                                   .plainListOffset = whole.offset})),
            std::nullopt);
  for (const End& claims :
       {End{.large = true, .plainEntries = 1}, End{.large = true, .plainListBytes = 1},
        End{.large = true, .plainListOffset = 1}})
    EXPECT_EQ(refused(style().bytes(claims)), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, BehindItsEndIsRefused) {
  const std::string plain = style().bytes();
  const auto whole = std::get<ZipDirectory>(find(plain));
  const std::uint64_t comment = plain.size();

  EXPECT_EQ(refused(style().bytes({.comment = whole.list, .listOffset = comment})),
            Reason::Damaged);
}

TEST_F(ZipDirectoryTest, OnOneOfManyDisksIsRefused) {
  for (const std::uint32_t disk : {1U, 0x100U, 0x8000U}) {
    EXPECT_EQ(refused(style().bytes({.disk = disk})), Reason::Damaged) << disk;
    EXPECT_EQ(refused(style().bytes({.firstDisk = disk})), Reason::Damaged) << disk;
  }
  for (const std::uint32_t disk : {1U, 0x100U, 0x10000U, 0x1000000U}) {
    EXPECT_EQ(refused(style().bytes({.disk = disk, .large = true})), Reason::Damaged) << disk;
    EXPECT_EQ(refused(style().bytes({.firstDisk = disk, .large = true})), Reason::Damaged) << disk;
  }
}

TEST_F(ZipDirectoryTest, InPiecesOrElsewhereIsRefused) {
  EXPECT_EQ(refused(style().bytes({.listOffset = ~std::uint64_t{0}, .large = true})),
            Reason::Damaged);
  std::string locator = style().bytes({.large = true});
  // The place of the large record.
  locator[locator.size() - 22 - 20 + 8] ^= 1;
  EXPECT_EQ(refused(locator), Reason::Damaged);
  locator[locator.size() - 22 - 20 + 15] = '\x7f';
  EXPECT_EQ(refused(locator), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, IsInNoFileWithoutAnEnd) {
  EXPECT_EQ(refused(""), Reason::NotAFolderOrZip);
  EXPECT_EQ(refused("PK"), Reason::NotAFolderOrZip);
  EXPECT_EQ(refused(std::string(100'000, 'x')), Reason::NotAFolderOrZip);
  EXPECT_EQ(refused(std::string("PK\5\6", 4) + std::string(100'000, 'x')), Reason::NotAFolderOrZip);
  EXPECT_EQ(refused(std::string("PK\5\6", 4)), Reason::Damaged);
  EXPECT_EQ(refused(style().bytes() + "x"), Reason::Damaged);
}

TEST_F(ZipDirectoryTest, OfAFileThatIsNotOpenIsRefused) {
  const Found found = findZipDirectory(-1, installation.limits);

  EXPECT_THAT(std::get<StyleRefusal>(found), refusedFor(Reason::Damaged));
}

TEST_F(ZipDirectoryTest, OfAnArchiveWithoutEntriesIsEmpty) {
  const Found found = find(GeneratedZip().bytes());

  EXPECT_EQ(std::get<ZipDirectory>(found).entries, 0U);
  EXPECT_THAT(refusal(sources() / "a.zip"), refusedFor(Reason::NotAStyle));
}

}  // namespace
}  // namespace frelta
