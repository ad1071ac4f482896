#include "cli/odbc_source.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

#include "files/file_bytes.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr std::string_view kPrefix = "ODBC;";
constexpr const char* kVariable = "ZORKANCA_DB_PASSWORD";

ConnectionString StringOf(const std::string& database) {
  try {
    return ConnectionString(FromUtf8(database.substr(kPrefix.size())));
  } catch (const Error& error) {
    throw UsageError("--db: " + ToUtf8(error.description()));
  }
}

std::string FirstLine(std::string text) {
  text.resize(std::min(text.find('\n'), text.size()));
  if (text.ends_with('\r')) text.pop_back();
  return text;
}

Text PasswordOfFile(const std::string& path) {
  const FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); }));
  if (!file) Raise(RuntimeError::kFileNotFound, u"The file of the password cannot be opened: " + FromUtf8(path));
  struct stat status {};
  if (fstat(file.get(), &status) != 0) Raise(RuntimeError::kDeviceIo);
  if (S_ISREG(status.st_mode) && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    Raise(RuntimeError::kPermissionDenied,
          u"Others may read the file of the password; \"chmod 600\" makes it yours alone: " + FromUtf8(path));
  }
  return FromUtf8(FirstLine(ReadToEnd(file.get(), path)));
}

// What is typed is not shown while this object lives.
class HiddenTyping {
 public:
  explicit HiddenTyping(int terminal) : terminal_(terminal) {
    if (tcgetattr(terminal, &before_) != 0) return;
    termios hidden = before_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    isHidden_ = tcsetattr(terminal, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (isHidden_) tcsetattr(terminal_, TCSAFLUSH, &before_);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;

  bool isHidden() const { return isHidden_; }

 private:
  int terminal_;
  termios before_{};
  bool isHidden_ = false;
};

void Say(int terminal, const std::string& text) {
  if (write(terminal, text.data(), text.size()) < 0) return;  // a terminal that shows nothing is asked all the same
}

// Whether something was typed. Ctrl-C may come to another thread, or before the waiting begins: nothing else would end
// it.
bool IsTyped(const CommandContext& context, int terminal) {
  constexpr int kMilliseconds = 50;
  pollfd typed{terminal, POLLIN, 0};
  while (!context.interrupted) {
    if (poll(&typed, 1, kMilliseconds) > 0) return true;
  }
  return false;
}

std::optional<Text> AskForPassword(const CommandContext& context, TextView user) {
  const FileDescriptor terminal(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
  if (!terminal) return std::nullopt;
  context.report.statusLine().Erase();
  const HiddenTyping hidden(terminal.get());
  if (!hidden.isHidden()) return std::nullopt;
  Say(terminal.get(), user.empty() ? "Password of the database: " : "Password of " + ToUtf8(user) + ": ");
  std::string line;
  char byte = 0;
  for (;;) {
    if (!IsTyped(context, terminal.get())) {
      Say(terminal.get(), "\n");
      Raise(RuntimeError::kUserInterrupt);
    }
    const ssize_t count = read(terminal.get(), &byte, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0 || byte == '\n') break;
    line.push_back(byte);
  }
  Say(terminal.get(), "\n");
  return FromUtf8(line);
}

std::optional<Text> PasswordOf(const CommandContext& context, const std::string& file, ConnectionString& string) {
  std::optional<Text> ofString = string.TakePassword();
  if (ofString) {
    context.report.Warning(
        u"the password in --db shows in the list of processes; --db-password-file and $ZORKANCA_DB_PASSWORD do not");
  }
  if (!file.empty()) return PasswordOfFile(file);
  if (ofString) return ofString;
  const char* const ofEnvironment = std::getenv(kVariable);
  if (ofEnvironment != nullptr && *ofEnvironment != '\0') return FromUtf8(ofEnvironment);
  return std::nullopt;
}

}  // namespace

bool IsConnectionString(const std::string& database) {
  return EqualsIgnoringCase(FromUtf8(database.substr(0, kPrefix.size())), FromUtf8(kPrefix));
}

std::unique_ptr<OdbcDatabase> OpenOdbc(const CommandContext& context, const std::string& database,
                                       const std::string& passwordFile) {
  ConnectionString string = StringOf(database);
  std::optional<Text> password = PasswordOf(context, passwordFile, string);
  return std::make_unique<OdbcDatabase>(
      OdbcLogin{.string = std::move(string),
                .password = std::move(password),
                .askPassword = [&context](TextView user) { return AskForPassword(context, user); }},
      &context.interrupted);
}

std::string ShownDatabase(const std::string& database) {
  if (!IsConnectionString(database)) return database;
  ConnectionString string = StringOf(database);
  string.TakePassword();
  return std::string(kPrefix) + ToUtf8(string.AsText());
}

}  // namespace zorkanca::cli
