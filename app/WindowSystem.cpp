#include "app/WindowSystem.h"

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "app/TerminalText.h"
#include "app/Translations.h"

namespace frelta {

namespace {

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
std::vector<Message> messages;

/// Whether it is for want of a display; else a display or the plug-in for it is of no use.
bool isDisplayMissing(const QString& cause) {
  return qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
         !cause.startsWith(QLatin1String("Could not find the Qt platform plugin"));
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
  const QString line =
      isDisplayMissing(cause)
          ? earlyText("WindowSystem",
                      QT_TRANSLATE_NOOP("WindowSystem", "There is no display to open a window on."))
          : earlyText("WindowSystem",
                      QT_TRANSLATE_NOOP("WindowSystem", "No window can be opened: %1"))
                .arg(cause);
  std::fprintf(stderr, "frelta-settings: %s\n", terminalText(line).constData());
  std::_Exit(1);
}

}  // namespace

std::unique_ptr<QGuiApplication> connectToWindowSystem(int& argc, char** argv) {
  const QtMessageHandler before = qInstallMessageHandler(keepMessage);
  auto application = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(before);
  for (const Message& message : std::exchange(messages, {})) {
    const QMessageLogContext context(message.file, message.line, message.function,
                                     message.category);
    qt_message_output(message.type, context, message.text);
  }
  return application;
}

}  // namespace frelta
