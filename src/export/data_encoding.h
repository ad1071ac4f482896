// In which encoding a file that somebody else has prepared is read.
#pragma once

#include "export/export_context.h"
#include "platform/file_system.h"
#include "runtime/text.h"

namespace zorkanca {

/// The encoding that the caller prefers, or that the file's byte-order mark tells. A file that is read as ANSI and
/// whose bytes are UTF-8 with letters beyond ASCII gets a warning, if there is somebody to tell. Errors: those of
/// `FileSystem::OpenTextFile`.
TextFormat EncodingOfFile(const ExportContext& context, const Text& path);

/// Makes sure, for somebody who is told, that a file is a text in an encoding. Errors: 13 with the path when it is not;
/// those of files.
void RequireEncoding(const ExportContext& context, const Text& path, TextFormat format);

/// The file itself when a merge reads it right as it is (by its mark, or as ANSI), and always for a caller who prefers
/// nothing; else a copy in UTF-16 in the work folder, which the caller deletes.
/// @param oneLineEach  records are read line by line, which takes UTF-16
Text MergeableFile(const ExportContext& context, const Text& path, bool oneLineEach);

}  // namespace zorkanca
