// The copies of a merge's main text: which records each is made of, and its text and XML whenever they are asked for.
#pragma once

#include <memory>
#include <vector>

#include "word/merge/copy_runner.h"

namespace zorkanca::word {

class MergedCopies {
 public:
  /// Finds out which records make which copy.
  /// @param source       what the input refers to; kept
  /// @param firstRecord  from 0
  MergedCopies(std::shared_ptr<const DataSource> source, Program program, std::size_t firstRecord, MergeInput input);

  std::size_t count() const { return count_; }
  CopyStart StartOf(std::size_t copy) const;
  const Program& program() const { return program_; }

  /// Appends a copy's text and XML.
  void AppendText(std::size_t copy, Text& units) const;
  void AppendXml(std::size_t copy, std::string& xml) const;
  /// The same for another program over the same records: a header, a note.
  void AppendXml(const Program& program, std::size_t copy, std::string& xml) const;

  /// Whose ids the copies refer to; outlives the object.
  void UseHeaders(const HeaderIds& headers);

 private:
  std::shared_ptr<const DataSource> source_;
  Program program_;
  std::size_t firstRecord_;
  std::size_t endRecord_;
  std::size_t count_ = 0;
  std::vector<std::size_t> starts_;  // first records; empty while each record makes one copy
  mutable CopyRunner runner_;
};

}  // namespace zorkanca::word
