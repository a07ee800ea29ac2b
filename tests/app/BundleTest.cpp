#include <QFile>
#include <QTemporaryDir>

#include "app/LoadedBundle.h"
#include "tests/app/OpenWindow.h"

namespace frelta {
namespace {

class Bundle : public testing::Test {
 protected:
  void put(const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(QLatin1String(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  void putInfo(const char* principalClass, const char* executable) {
    const auto bytes = window.services.propertyLists->dataWithPropertyList(
        Dictionary{{"NSPrincipalClass", principalClass}, {"CFBundleExecutable", executable}});
    put("Info.plist", QByteArray::fromStdString(*bytes));
  }

  OpenWindow window;
  QTemporaryDir folder;
  QString error;
};

TEST_F(Bundle, NamesItsPrincipalClassAndItsSharedObject) {
  const auto bundle = LoadedBundle::load(QStringLiteral(FRELTA_BUNDLE), error);

  ASSERT_NE(bundle, nullptr) << error.toStdString();
  EXPECT_EQ(bundle->info().principalClass, "freltaprefsRootListController");
  EXPECT_NE(bundle->classes().controller("freltaAdvancedprefsRootListController"), nullptr);
  EXPECT_TRUE(bundle->contentsOfResource("Root.plist"));
  EXPECT_TRUE(bundle->contentsOfResource("Advanced.plist"));
}

TEST_F(Bundle, GivesNothingFromOutsideItsFolder) {
  const auto bundle = LoadedBundle::load(QStringLiteral(FRELTA_BUNDLE), error);

  ASSERT_NE(bundle, nullptr);
  EXPECT_FALSE(bundle->contentsOfResource("../freltaprefs.bundle/Root.plist"));
  EXPECT_FALSE(bundle->contentsOfResource(".."));
  EXPECT_FALSE(bundle->contentsOfResource("Missing.plist"));
}

TEST_F(Bundle, WithoutAnInfoFileIsRefusedWithAReason) {
  EXPECT_EQ(LoadedBundle::load(folder.path(), error), nullptr);

  EXPECT_THAT(error.toStdString(), testing::HasSubstr("is not a preference bundle"));
}

TEST_F(Bundle, WhoseCodeIsMissingOrNoCodeIsRefusedWithAReason) {
  putInfo("freltaprefsRootListController", "freltaprefs");
  EXPECT_EQ(LoadedBundle::load(folder.path(), error), nullptr);
  EXPECT_THAT(error.toStdString(), testing::HasSubstr("cannot be loaded"));

  put("freltaprefs", "not a shared object");
  EXPECT_EQ(LoadedBundle::load(folder.path(), error), nullptr);
  EXPECT_THAT(error.toStdString(), testing::HasSubstr("cannot be loaded"));
}

TEST_F(Bundle, WhosePrincipalClassIsUnknownIsRefusedWithAReason) {
  ASSERT_TRUE(QFile::copy(QStringLiteral(FRELTA_BUNDLE "/freltaprefs"),
                          folder.filePath(QStringLiteral("freltaprefs"))));
  putInfo("Nobody", "freltaprefs");

  EXPECT_EQ(LoadedBundle::load(folder.path(), error), nullptr);

  EXPECT_THAT(error.toStdString(), testing::HasSubstr("no class Nobody"));
}

TEST_F(Bundle, WithoutAPageDescriptionOpensAnEmptyPage) {
  ASSERT_TRUE(QFile::copy(QStringLiteral(FRELTA_BUNDLE "/freltaprefs"),
                          folder.filePath(QStringLiteral("freltaprefs"))));
  putInfo("freltaprefsRootListController", "freltaprefs");

  ASSERT_NO_FATAL_FAILURE(window.open(folder.path()));

  EXPECT_FALSE(window.driver->hasRow("Enabled"));
}

}  // namespace
}  // namespace frelta
