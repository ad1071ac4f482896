#include "templates/supply_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "foundation/error_log.h"
#include "platform/event_log.h"
#include "platform/paths.h"
#include "runtime/code_page.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kFieldCount = 5;

Text ReadAll(FileSystem& files, TextView path, TextFormat format) {
  return files.OpenTextFile(path, IoMode::kForReading, false, format)->ReadAll();
}

// Editors of today like to save as Unicode what was in the code page. A file that begins with a byte-order mark, or
// whose bytes are sound UTF-8, is taken as that: no text in the code page with accents looks so.
Text ReadText(const Platform& platform, TextView path) {
  std::string bytes;
  Text ansi = ReadAll(platform.files, path, TextFormat::kAnsi);
  platform.locale.codePage->AppendEncoded(bytes, ansi);
  if (bytes.starts_with("\xFF\xFE")) return ReadAll(platform.files, path, TextFormat::kUnicode);
  if (bytes.find('\0') != std::string::npos) {
    Raise(RuntimeError::kTypeMismatch, u"Soubor \"" + Text(path) + u"\" není text v kódové stránce ANSI.");
  }
  Text utf8;
  if (!AppendUtf8(utf8, bytes)) return ansi;
  return utf8.starts_with(u'\uFEFF') ? utf8.substr(1) : utf8;
}

bool MeansDefaultList(TextView listName) {
  constexpr std::array<TextView, 6> kNames = {u"", u"vychozi", u"výchozí", u"vychozí", u"výchozi", u"default"};
  return std::find(kNames.begin(), kNames.end(), LowerCase(Trim(listName))) != kNames.end();
}

class SupplyReader {
 public:
  SupplyReader(const Platform& platform, const SupplyTarget& target) : platform_(platform), target_(target) {
    folder_ = BuildPath(platform.files, target.defaultPath, target.list.ZorAplName);
    if (!EqualsIgnoringCase(target.list.Typ, kDefaultListName)) {
      folder_ = BuildPath(platform.files, folder_, target.list.Typ);
    }
  }

  /// The template of a line; nothing when the line is meant for another list or its file is missing.
  /// Errors: 5 for too few fields, 6 for an identifier that is too large.
  std::optional<SuppliedTemplate> Read(TextView line) const {
    const std::vector<TextView> fields = Split(line, u'|');
    if (fields.size() <= kFieldCount) {
      Raise(RuntimeError::kInvalidCall, u"za některým z pěti údajů chybí svislá čára");
    }
    if (!EqualsIgnoringCase(fields[0], target_.list.ZorAplName)) return std::nullopt;
    const TextView listName = MeansDefaultList(fields[1]) ? kDefaultListName : fields[1];
    if (!EqualsIgnoringCase(listName, target_.list.Typ)) return std::nullopt;
    Text fileName = WithExtension(fields[2], target_.application);
    if (!platform_.files.FileExists(BuildPath(platform_.files, folder_, fileName))) return std::nullopt;
    return SuppliedTemplate{.fileName = std::move(fileName),
                            .description = Text(fields[3]),
                            .id = ToLong(Val(fields[4]), platform_.locale),
                            .folder = folder_};
  }

 private:
  const Platform& platform_;
  const SupplyTarget& target_;
  Text folder_;
};

}  // namespace

void LogSkippedLine(const Platform& platform, std::int32_t line, TextView reason) {
  Text message(kSupplyFileName);
  message.append(u", řádek ");
  AppendDecimal(message, line);
  message.append(u" byl přeskočen: ").append(reason);
  LogMessageWithContext(platform, message, kWarningEvent, u"c_SeznamSablonOffice.SupplyFromFile");
}

std::vector<SuppliedTemplate> ReadSupplyFile(const Platform& platform, TextView path, const SupplyTarget& target) {
  const Text text = ReadText(platform, path);
  const SupplyReader reader(platform, target);
  std::vector<SuppliedTemplate> supplied;
  std::int32_t number = 0;
  for (TextView line : Split(text, u'\n')) {
    ++number;
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    if (IsBlank(line)) continue;
    try {
      if (auto read = reader.Read(line)) {
        read->line = number;
        supplied.push_back(*std::move(read));
      }
    } catch (const Error& error) {
      LogSkippedLine(platform, number, error.description());
    }
  }
  return supplied;
}

}  // namespace zorkanca
