#include "tests/monkey/MonkeyWorld.h"

#include <QDropEvent>
#include <QMimeData>
#include <array>
#include <fstream>

#include "device/Notifications.h"
#include "device/SettingsKeys.h"
#include "tests/installer/GeneratedZip.h"
#include "tests/support/Pictures.h"

namespace frelta {

namespace {

namespace fs = std::filesystem;
using Operation = FailingFiles::Operation;

constexpr int kMostStepsOfTrouble = 6;

const std::array<std::string, 12> kStyles{
    "Sea.theme",     "Sky.theme",         "Sun.theme",
    "Clock.bundle",  "Weather.bundle",    "\xc3\x9cn\xc3\xaf \xf0\x9f\x98\x80.theme",
    "caf\xe9.theme", "Back\vline.theme",  MonkeyWorld::kHiddenStyle,
    "%@%d.theme",    "Plain.file.bundle", "no ending"};
const std::array<std::string, 8> kPresets{"Work.plist",    "Play.plist",       "Night.plist",
                                          "caf\xe9.plist", "Work\vKeys.plist", "%@.plist",
                                          "Folder.plist",  "notes.txt"};
PropertyListValue anyValue(Dice& dice) {
  switch (dice.below(9)) {
    case 0:
      return 0;
    case 1:
      return 1;
    case 2:
      return dice.between(-3, 7);
    case 3:
      return std::string(kThemesFolder) + dice.pick(kStyles);
    case 4:
      return "#336699CC";
    case 5:
      return Array{std::string(kThemesFolder) + "Sea.theme", 2};
    case 6:
      return std::string(kPresetsFolder) + "/Work.plist";
    case 7:
      return 0.5;
    default:
      return "";
  }
}

Dictionary anySettings(Dice& dice) {
  Dictionary made;
  for (int i = dice.below(6); i > 0; --i)
    made[std::string(dice.pick(settingKeys()).name)] = anyValue(dice);
  return made;
}

std::string icon(Dice& dice) {
  const Pixel color{dice.below(256), dice.below(256), dice.below(256), 255};
  return QtImageServices().pngRepresentation(*picture(60, 60, color)).value();
}

void write(const fs::path& path, const std::string& bytes) {
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

std::string MonkeyWorld::changeAppearance() {
  switch (dice_.below(4)) {
    case 0:
      house_.setPortalSetting("contrast", static_cast<unsigned>(dice_.below(2)));
      return "contrast";
    case 1:
      house_.setPortalSetting("reduced-motion", static_cast<unsigned>(dice_.below(2)));
      return "motion";
    case 2:
      house_.setScale(dice_.between(1, 3));
      return "scale";
    default:
      house_.setStyle(dice_.oneIn(2) ? UserInterfaceStyle::Light : UserInterfaceStyle::Dark);
      return "light or dark";
  }
}

std::string MonkeyWorld::changeSize() {
  const QSize size(dice_.between(280, dice_.oneIn(5) ? 1200 : 480), dice_.between(320, 900));
  house_.quick().resize(size);
  return "size " + std::to_string(size.width()) + " x " + std::to_string(size.height());
}

std::string MonkeyWorld::letTimePass() {
  house_.pass(0.05 * dice_.between(1, 40));
  return "time";
}

void MonkeyWorld::makeStyle(const fs::path& folder) {
  std::error_code ignored;
  const int kind = dice_.below(4);
  if (kind < 2) fs::create_directories(folder / (kind == 0 ? "Images" : "HTML"), ignored);
  if (kind == 2) fs::create_directories(folder, ignored);
  if (kind == 3) return write(folder, "a file");
  if (!dice_.oneIn(3)) write(folder / "Icon.png", dice_.oneIn(4) ? "no picture" : icon(dice_));
  if (dice_.oneIn(3)) write(folder / "IconBundles/Key@2x.png", icon(dice_));
}

std::string MonkeyWorld::dropFiles() {
  QList<QUrl> urls;
  for (int i = dice_.between(1, 3); i > 0; --i) {
    // A name that is no text has no URL.
    const std::string& name = kStyles[static_cast<std::size_t>(dice_.below(5))];
    const fs::path source = house_.sources.path() / name;
    std::error_code ignored;
    fs::remove_all(source, ignored);
    const fs::path zip = source.string() + ".zip";
    if (dice_.oneIn(2)) {
      makeStyle(source);
      urls.append(QUrl::fromLocalFile(QString::fromStdString(source)));
    } else {
      const bool good = !dice_.oneIn(3);
      write(zip, good ? GeneratedZip().add(name + "/Images/Key.png", "k").bytes() : "no zip");
      urls.append(QUrl::fromLocalFile(QString::fromStdString(zip)));
    }
  }
  QMimeData data;
  data.setUrls(urls);
  QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&house_.quick(), &enter);
  if (dice_.oneIn(5)) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&house_.quick(), &leave);
    return "drag without a drop";
  }
  const bool isSlow = dice_.oneIn(3);
  if (isSlow) {
    house_.holdInstallations();
    stepsToGo_ = dice_.between(1, kMostStepsOfTrouble);
  }
  QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&house_.quick(), &drop);
  return (isSlow ? "slow drop of " : "drop of ") + std::to_string(urls.size());
}

std::string MonkeyWorld::changeAStyle() {
  const std::string& name = dice_.pick(kStyles);
  const fs::path folder = host(std::string(kThemesFolder) + name);
  std::error_code ignored;
  if (dice_.oneIn(2)) {
    makeStyle(folder);
    return "style " + name + " comes";
  }
  fs::remove_all(folder, ignored);
  return "style " + name + " goes";
}

std::string MonkeyWorld::bytesOf(const PropertyListValue& value) {
  return house_.window.services.propertyLists->dataWithPropertyList(value).value_or("");
}

std::string MonkeyWorld::bytesOfAPreset() {
  switch (dice_.below(8)) {
    case 0:
      return "garbage";
    case 1:
      return {};
    case 2:
      return bytesOf(Array{1, 2});
    default: {
      Dictionary preset = anySettings(dice_);
      if (dice_.oneIn(10)) preset["Dated"] = Date{1};
      return bytesOf(preset);
    }
  }
}

std::string MonkeyWorld::changeAPreset() {
  const std::string& name = dice_.pick(kPresets);
  const fs::path file = host(std::string(kPresetsFolder) + "/" + name);
  std::error_code ignored;
  fs::remove_all(file, ignored);
  if (dice_.oneIn(2)) return "preset " + name + " goes";
  if (name == "Folder.plist")
    fs::create_directories(file, ignored);
  else
    write(file, bytesOfAPreset());
  return "preset " + name + " comes";
}

std::string MonkeyWorld::changeSettings() {
  Dictionary now = dictionaryWithContentsOfFile(kSettingsPath).value_or(Dictionary());
  for (const auto& [key, value] : anySettings(dice_)) now[key] = value;
  writePropertyListToFile(now, kSettingsPath);
  return "another program changes the settings";
}

std::string MonkeyWorld::broadcast() {
  LinuxDarwinNotificationCenter somebody;
  somebody.post(dice_.oneIn(2) ? std::string(kRefreshNotification) : "com.tarno.other");
  return "broadcast";
}

std::string MonkeyWorld::changeTheBus() {
  if (isBusGone_)
    house_.bus().start();
  else
    house_.bus().stop();
  isBusGone_ = !isBusGone_;
  return isBusGone_ ? "the bus dies" : "the bus comes back";
}

std::string MonkeyWorld::answerThePicker() {
  if (!house_.window.pictures.isAsking()) return "nobody asks for a picture";
  if (dice_.oneIn(4)) {
    house_.window.pictures.choose();
    return "a picture is being read";
  }
  const int answer = dice_.below(3);
  house_.window.pictures.finish(
      {answer == 0 ? picture(64, 48, kBlue) : nullptr, answer == 1 ? "It is damaged." : ""});
  return answer == 0 ? "a picture" : answer == 1 ? "a damaged picture" : "no picture";
}

std::string MonkeyWorld::failForAWhile() {
  // Not reading: a file that cannot be read counts as empty to whoever writes it.
  constexpr std::array kOperations{Operation::Write,      Operation::Copy,
                                   Operation::Remove,     Operation::Contents,
                                   Operation::FileExists, Operation::CreateDirectory};
  const Operation operation = dice_.pick(kOperations);
  house_.window.platform.files.fail(operation);
  if (operation == Operation::Copy) canCopy_ = false;
  stepsToGo_ = dice_.between(1, kMostStepsOfTrouble);
  return "the disk fails";
}

std::string MonkeyWorld::restart() {
  house_.start();
  return "restart";
}

void MonkeyWorld::stepDone() {
  if (stepsToGo_ > 0 && --stepsToGo_ == 0) endTrouble();
}

void MonkeyWorld::endTrouble() {
  for (int i = 0; i <= static_cast<int>(Operation::Write); ++i)
    house_.window.platform.files.succeed(static_cast<Operation>(i));
  canCopy_ = true;
  house_.letInstallationsGo();
  house_.settle();
}

void MonkeyWorld::comeToRest() {
  stepsToGo_ = 0;
  endTrouble();
  house_.window.pictures.finish({});
}

}  // namespace frelta
