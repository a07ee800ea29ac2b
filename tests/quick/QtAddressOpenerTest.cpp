#include "quick/QtAddressOpener.h"

#include <gmock/gmock.h>

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Takes the place of the desktop's browser.
class Browser : public QObject {
  Q_OBJECT

 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
  std::vector<std::string> opened;

 public Q_SLOTS:
  void open(const QUrl& url) { opened.push_back(url.toEncoded().toStdString()); }
};

TEST(QtAddressOpener, HandsTheAddressToTheDesktop) {
  Browser browser;

  EXPECT_TRUE(QtAddressOpener().openURL("https://tarno.example/frelta?a=b%20c"));

  EXPECT_THAT(browser.opened, ElementsAre("https://tarno.example/frelta?a=b%20c"));
}

TEST(QtAddressOpener, OpensNothingThatIsNoAddress) {
  Browser browser;

  for (const char* address : {"", "https://[", "https://tarno.example/a b\x01%zz"})
    EXPECT_FALSE(QtAddressOpener().openURL(address)) << address;

  EXPECT_THAT(browser.opened, IsEmpty());
}

}  // namespace
}  // namespace frelta

#include "QtAddressOpenerTest.moc"
