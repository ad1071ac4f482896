// Footnotes, endnotes and comments of the copies: each copy's notes are notes of their own.
#pragma once

#include <string>
#include <vector>

#include "opc/package.h"
#include "word/document/word_package.h"
#include "word/merge/merged_copies.h"
#include "word/merge/story_compiler.h"

namespace zorkanca::word {

/// The notes of one part.
struct NoteCopies {
  std::string part;
  std::string prologue;  ///< the part up to the notes of copies, with the notes that no copy refers to
  Program program;       ///< the notes of one copy
  std::string epilogue;
};

/// Takes note of the numbers that the notes' parts use.
void GatherNoteNumbers(WordPackage& package, UniqueNumbers& numbers);
/// Compiles the parts whose notes the main text refers to.
std::vector<NoteCopies> CompileNotes(WordPackage& package, const CompileInput& input);
/// Gives the package the parts; the copies are asked while it is written.
void AddNotesTo(Package& package, const std::vector<NoteCopies>& notes, const MergedCopies& copies);

}  // namespace zorkanca::word
