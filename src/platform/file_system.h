// Files and folders under the names of the scripting file system object.
// Paths are texts; "\" and "/" both separate on input, `PathSeparator` is what we write.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// How `OpenTextFile` opens (numbers of the scripting object).
enum class IoMode { kForReading = 1, kForWriting = 2, kForAppending = 8 };

/// Encoding of a text file: the ANSI code page of the user's locale, UTF-16 little-endian with byte-order mark, or
/// UTF-8, which is written without a mark; one that is read is skipped.
enum class TextFormat { kAnsi = 0, kUnicode = -1, kUtf8 = 1 };

/// An open text file.
/// A file opened for writing takes its place only when `Close` succeeds, whole and at once, and is locked until then;
/// a stream destroyed without `Close` leaves the path as it was.
class TextStream {
 public:
  virtual ~TextStream() = default;
  virtual void Write(TextView text) = 0;
  /// Writes the text and CR LF.
  virtual void WriteLine(TextView text) = 0;
  /// The next line without its end (CR LF or LF). Errors: 62 at the end of the file.
  virtual Text ReadLine() = 0;
  virtual Text ReadAll() = 0;
  /// The next `characters` characters, fewer at the end. Errors: 62 at the end of the file, 5 for less than one.
  virtual Text Read(std::int32_t characters) = 0;
  virtual bool AtEndOfStream() = 0;
  /// Errors: 61 when the disk is full, 57, 70. Nothing is written then. A second call does nothing.
  virtual void Close() = 0;
  /// How many of the characters written so far the encoding does not have: another one stands in their place.
  virtual std::int64_t LostCharacters() const { return 0; }
};

/// One file of a folder.
struct FileEntry {
  Text name;
  Text path;
  Date lastModified;  ///< local time
};

/// Keeps a file that is still needed from being cleared away, in this process and in others.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual char16_t PathSeparator() const = 0;

  virtual bool FileExists(TextView path) = 0;
  virtual bool FolderExists(TextView path) = 0;
  /// Creates one folder. Errors: 58 when it exists, 70, 76 when its parent does not.
  virtual void CreateFolder(TextView path) = 0;
  /// Deletes a regular file. Errors: 53 when there is none, 70 when it is read-only and not forced, or not deletable.
  virtual void DeleteFile(TextView path, bool force) = 0;
  /// Deletes what a program left in a folder: every file whose name matches the wildcards, but for those that a running
  /// process has open or locked. What cannot be deleted stays; nothing is raised.
  virtual void ClearFolder(TextView folder, TextView wildcards) = 0;
  /// The files of a folder, no sub-folders, in no particular order. Errors: 76.
  virtual std::vector<FileEntry> Files(TextView folder) = 0;

  /// The private temporary folder of this user (special folder 2). Errors: 70 when it belongs to somebody else.
  virtual Text TemporaryFolder() = 0;
  /// A fresh file name without folder, "radXXXXX.tmp".
  virtual Text GetTempName() = 0;
  /// Absolute form of a path; a relative one starts from the current folder.
  virtual Text GetAbsolutePathName(TextView path) = 0;

  /// @param create  with kForWriting and kForAppending, make a file that is not there
  /// Errors: 53, 70, 75 for a folder, 76 when the folder does not exist.
  virtual std::unique_ptr<TextStream> OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) = 0;
  /// Locks an existing file against `ClearFolder` for the lifetime of the result. Errors: 53.
  virtual std::unique_ptr<FileLock> LockFile(TextView path) = 0;
};

}  // namespace zorkanca
