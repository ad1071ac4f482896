// A file that begins anew every day: its name carries the date, and the first use of a day deletes old ones.
#pragma once

#include <cstdint>
#include <utility>

#include "foundation/file_collection.h"
#include "foundation/log_writer.h"
#include "platform/platform.h"

namespace zorkanca {

/// Names the file of a day "name_2026-11-16.extension" and keeps the newest of its elder brothers.
class DailyRolloverFile {
 public:
  /// A file in the current folder, so far without a name and an extension.
  /// @param log  gets the reports of old files that cannot be deleted; may well write them into this very file.
  ///             It outlives the object
  DailyRolloverFile(const Platform& platform, ILogWriter& log);
  /// The same in another folder.
  DailyRolloverFile(const Platform& platform, ILogWriter& log, Text folder);

  const Text& Folder() const { return folder_; }
  void Folder(Text folder) { folder_ = std::move(folder); }

  /// What stands before the date, with "_" between the two; when empty, the date stands alone.
  const Text& name() const { return name_; }
  void name(Text name) { name_ = std::move(name); }

  /// What stands after the date and "."; when empty, the date ends the name. A "." at its start is dropped.
  const Text& Extension() const { return extension_; }
  void Extension(TextView extension);

  /// Form of the date in the name.
  static TextView RollSuffixDateFormat() { return u"yyyy-mm-dd"; }

  /// How many files of earlier days a roll leaves, 14 at first; less than 1 leaves none.
  std::int16_t RollingFilesCount() const { return rollingFilesCount_; }
  void RollingFilesCount(std::int16_t count) { rollingFilesCount_ = count; }

  /// Path of today's file. When it is not there yet, makes the folder with its parents and rolls, unless a roll is
  /// under way: then the question comes from the report of a file that cannot be deleted.
  /// Errors: internal error when the folder cannot be made or read.
  Text GetCurrentAndRollIfNeeded();
  /// Path of today's file.
  Text BuildCurrentName() const { return BuildRollName(platform_.clock.Now()); }
  /// Path of the file of a day.
  Text BuildRollName(Date date) const;

  /// True while today's file does not exist.
  bool NeedsRoll() const;
  /// The files of all days in the folder. Errors: internal error when it cannot be read.
  FileCollection FindRolled() const;
  /// Deletes the files of all days but the `RollingFilesCount` that were modified last. What cannot be deleted is
  /// reported and stays. Errors: those of `FindRolled`.
  void Roll();

 private:
  Platform platform_;
  ILogWriter& log_;
  Text folder_;
  Text name_;
  Text extension_;
  std::int16_t rollingFilesCount_ = 14;
  bool rolling_ = false;
};

}  // namespace zorkanca
