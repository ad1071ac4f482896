// Files without a name, for what is too much for the memory.
#pragma once

#include "files/file_descriptor.h"

namespace zorkanca {

/// Opens an empty file for reading and writing in the private temporary folder. It is gone with the descriptor or with
/// the process. Errors: 70 when the folder is not safe, 57, 61.
FileDescriptor OpenUnnamedFile();

}  // namespace zorkanca
