#include "foundation/daily_rollover_file.h"

#include "foundation/folders.h"
#include "foundation/guarded.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/format.h"

namespace zorkanca {

namespace {

/// Sets a mark as long as it lives.
class Marked {
 public:
  explicit Marked(bool& mark) : mark_(mark) { mark_ = true; }
  ~Marked() { mark_ = false; }
  Marked(const Marked&) = delete;
  Marked& operator=(const Marked&) = delete;

 private:
  bool& mark_;
};

// A pattern that only the text itself matches.
Text Literally(TextView text) {
  Text pattern;
  for (const char16_t unit : text) {
    if (TextView(u"?*#[").find(unit) == TextView::npos) {
      pattern.push_back(unit);
    } else {
      pattern.append({u'[', unit, u']'});
    }
  }
  return pattern;
}

Text NameOf(TextView name, TextView day, TextView extension) {
  Text whole(name);
  if (!name.empty()) whole.push_back(u'_');
  whole.append(day);
  if (!extension.empty()) whole.append(u".").append(extension);
  return whole;
}

void CreateFolderWithParents(FileSystem& files, TextView folder) {
  if (folder.empty() || files.FolderExists(folder)) return;
  CreateFolderWithParents(files, GetParentFolderName(folder));
  MakeFolder(files, folder);
}

}  // namespace

DailyRolloverFile::DailyRolloverFile(const Platform& platform, ILogWriter& log)
    : DailyRolloverFile(platform, log, platform.files.GetAbsolutePathName(u".")) {}

DailyRolloverFile::DailyRolloverFile(const Platform& platform, ILogWriter& log, Text folder)
    : platform_(platform), log_(log), folder_(std::move(folder)) {}

void DailyRolloverFile::Extension(TextView extension) {
  if (extension.starts_with(u'.')) extension.remove_prefix(1);
  extension_ = extension;
}

Text DailyRolloverFile::GetCurrentAndRollIfNeeded() {
  return Guarded(u"DailyRollFile.GetCurrentAndRollIfNeeded", NoArguments, [&] {
    // Asked once: at midnight the file of the new day must not come into being without its roll.
    Text current = BuildCurrentName();
    if (!rolling_ && !platform_.files.FileExists(current)) {
      CreateFolderWithParents(platform_.files, folder_);
      Roll();
    }
    return current;
  });
}

Text DailyRolloverFile::BuildRollName(Date date) const {
  const Text day = Format(date, RollSuffixDateFormat(), platform_.locale);
  return BuildPath(platform_.files, folder_, NameOf(name_, day, extension_));
}

bool DailyRolloverFile::NeedsRoll() const {
  return Guarded(u"DailyRollFile.NeedsRoll", NoArguments,
                 [&] { return !platform_.files.FileExists(BuildCurrentName()); });
}

FileCollection DailyRolloverFile::FindRolled() const {
  return Guarded(u"DailyRollFile.FindRolled", NoArguments, [&] {
    return FileCollection(platform_.files)
        .GetFromFolder(folder_)
        .Filter(NameOf(Literally(name_), u"####-##-##", Literally(extension_)));
  });
}

void DailyRolloverFile::Roll() {
  Guarded(u"DailyRollFile.Roll", NoArguments, [&] {
    const Marked rolling(rolling_);
    FileCollection old = FindRolled();
    old.RemoveNewestTop(rollingFilesCount_);
    old.QuietDelete(&log_);
  });
}

}  // namespace zorkanca
