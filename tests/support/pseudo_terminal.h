// A terminal of our own, with a person who has typed ahead at its other end.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "files/file_descriptor.h"
#include "host/console/terminal.h"

namespace zorkanca::testing {

class PseudoTerminal {
 public:
  PseudoTerminal() : person_(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (grantpt(person_.get()) != 0 || unlockpt(person_.get()) != 0) throw std::runtime_error("no terminal");
    program_ = FileDescriptor(open(ptsname(person_.get()), O_RDWR | O_NOCTTY));
    termios settings{};
    tcgetattr(program_.get(), &settings);
    settings.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    tcsetattr(program_.get(), TCSANOW, &settings);
  }

  /// The program's side.
  Terminal terminal() const { return Terminal(program_.get(), program_.get()); }
  /// What the program will read; "\x04" ends the input.
  void Type(const std::string& keys) const {
    if (write(person_.get(), keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) std::abort();
  }
  /// What the program has printed since the last call.
  std::string Printed() const {
    std::string printed;
    pollfd waiting{.fd = person_.get(), .events = POLLIN, .revents = 0};
    while (poll(&waiting, 1, printed.empty() ? 1000 : 20) > 0) {
      char block[4096];
      const ssize_t count = read(person_.get(), block, sizeof block);
      if (count <= 0) break;
      printed.append(block, static_cast<std::size_t>(count));
    }
    return printed;
  }

 private:
  FileDescriptor person_;
  FileDescriptor program_;
};

}  // namespace zorkanca::testing
