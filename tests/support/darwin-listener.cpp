// Prints each Darwin notification's name as it comes, ended by a NUL byte, and an empty one first
// to say that it listens. Ends with the bus.

#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cstring>

namespace {

void print(const char* name) {
  const std::size_t size = std::strlen(name) + 1;
  for (std::size_t done = 0; done < size;) {
    const ssize_t count = ::write(STDOUT_FILENO, name + done, size - done);
    if (count <= 0) ::_exit(1);
    done += static_cast<std::size_t>(count);
  }
}

int heard(sd_bus_message* message, void*, sd_bus_error*) {
  const char* name = nullptr;
  if (::sd_bus_message_has_signature(message, "s") > 0 &&
      ::sd_bus_message_read(message, "s", &name) > 0)
    print(name);
  return 0;
}

}  // namespace

int main() {
  sd_bus* bus = nullptr;
  if (::sd_bus_open_user(&bus) < 0) return 1;
  if (::sd_bus_match_signal(bus, nullptr, nullptr, "/com/tarno/DarwinNotificationCenter",
                            "com.tarno.DarwinNotificationCenter", "Posted", heard, nullptr) < 0)
    return 1;
  print("");
  for (;;) {
    const int processed = ::sd_bus_process(bus, nullptr);
    if (processed < 0) break;
    if (processed == 0 && ::sd_bus_wait(bus, UINT64_MAX) < 0) break;
  }
  ::sd_bus_unref(bus);
  return 0;
}
