#include "app/WindowSystem.h"

#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace frelta {

namespace {

class Texts {
  Q_DECLARE_TR_FUNCTIONS(WindowSystem)
};

struct Message {
  QtMsgType type;
  // Points to constants of the code that sent it.
  const char* file;
  int line;
  const char* function;
  const char* category;
  QString text;
};

// A handler is a plain function: what it works with has no other place.
const WindowSystemTexts* texts = nullptr;
std::vector<Message> messages;

bool isDisplayNamed() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type != QtFatalMsg) {
    messages.push_back(
        {type, context.file, context.line, context.function, context.category, text});
    return;
  }
  // The first complaint tells the cause; what Qt says at the end is to have the program
  // reinstalled.
  const QString cause = (messages.empty() ? text : messages.front().text).simplified();
  const QString line = isDisplayNamed() ? texts->failed.arg(cause) : texts->noDisplay;
  std::fprintf(stderr, "frelta-settings: %s\n", qPrintable(line));
  std::_Exit(1);
}

}  // namespace

WindowSystemTexts WindowSystemTexts::current() {
  return {Texts::tr("There is no display to open a window on."),
          Texts::tr("No window can be opened: %1")};
}

std::unique_ptr<QGuiApplication> connectToWindowSystem(int& argc, char** argv,
                                                       const WindowSystemTexts& forFailure) {
  texts = &forFailure;
  const QtMessageHandler before = qInstallMessageHandler(keepMessage);
  auto application = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(before);
  texts = nullptr;
  for (const Message& message : std::exchange(messages, {})) {
    const QMessageLogContext context(message.file, message.line, message.function,
                                     message.category);
    qt_message_output(message.type, context, message.text);
  }
  return application;
}

}  // namespace frelta
