#include "quick/QtAddressOpener.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace frelta {

bool QtAddressOpener::openURL(std::string_view address) {
  const QUrl url(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())),
                 QUrl::StrictMode);
  return url.isValid() && QDesktopServices::openUrl(url);
}

}  // namespace frelta
