#include <QByteArray>
#include <QDBusVariant>
#include <QString>
#include <QVariant>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Require.h"
#include "quick/PortalSettings.h"

namespace {

using namespace frelta;

/// Takes from the front of the bytes, zeros when they are at their end.
class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size) : at_(bytes), end_(bytes + size) {}
  bool isAtEnd() const { return at_ == end_; }
  std::uint8_t byte() { return isAtEnd() ? 0 : *at_++; }
  std::uint32_t number() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | byte();
    return value;
  }
  QString text() {
    QByteArray bytes;
    for (int left = byte(); left > 0 && !isAtEnd(); --left) bytes.append(static_cast<char>(byte()));
    return QString::fromUtf8(bytes);
  }

 private:
  const std::uint8_t* at_;
  const std::uint8_t* end_;
};

struct Told {
  QVariant value;
  std::optional<std::uint32_t> number;  // what is to be kept of it
};

Told toldBy(Input& input) {
  switch (const int kind = input.byte(); kind % 8) {
    case 0:
      return {QVariant(input.number()), std::nullopt};
    case 1:
      return {QVariant(static_cast<int>(input.number())), std::nullopt};
    case 2:
      return {QVariant((input.byte() & 1) != 0), std::nullopt};
    case 3:
      return {QVariant(input.text()), std::nullopt};
    case 4:
      return {QVariant(static_cast<double>(input.number())), std::nullopt};
    case 5:
      return {QVariantList{QVariant(input.number())}, std::nullopt};
    case 6:
      return {QVariant(input.text().toUtf8()), std::nullopt};
    default:
      return {QVariant(), std::nullopt};
  }
}

Told numbered(Told told) {
  const int type = told.value.typeId();
  if (type == QMetaType::UInt || type == QMetaType::Int || type == QMetaType::Bool)
    told.number = told.value.toUInt();
  return told;
}

}  // namespace

/// Whatever a portal tells, in whatever order: the last number of each setting that is used counts,
/// and nothing else does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  PortalSettings settings;
  std::array<std::optional<std::uint32_t>, 5> kept;
  while (!input.isAtEnd()) {
    const std::size_t which = input.byte() % (kept.size() + 1);
    const Told told = numbered(toldBy(input));
    const int wrapping = input.byte() % 4;
    QVariant value = told.value;
    for (int i = 0; i < wrapping; ++i) value = QVariant::fromValue(QDBusVariant(value));
    if (which == kept.size()) {
      settings.take(QStringLiteral("x") + input.text(), input.text(), value);
      continue;
    }
    const PortalSettings::Name& name = PortalSettings::names()[which];
    settings.take(name.space, name.key, value);
    if (wrapping < 2 && told.number) kept[which] = told.number;
  }
  const auto style = settings.style();
  require(style.has_value() == (kept[0].value_or(0) != 0));
  require(!style || (*style == UserInterfaceStyle::Dark) == (kept[0] == 1U));
  require(settings.highContrast() == (kept[1] == 1U || kept[3].value_or(0) != 0));
  require(settings.reducedMotion() == (kept[2] == 1U || kept[4] == 0U));
  return 0;
}
