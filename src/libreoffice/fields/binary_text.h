// The text of a binary Word document of 1997 and later (MS-DOC): stories one behind the other, in pieces of one or two
// bytes a character, and the tables of their fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "libreoffice/fields/compound_file.h"

namespace zorkanca {

/// A part of the text that counts its characters from 0: main text, footnotes, headers, ...
struct BinaryStory {
  std::uint32_t start = 0;   ///< in the whole text
  std::uint32_t length = 0;  ///< characters
  std::size_t fields = 0;    ///< number of the table of its fields
};

/// A table that the document's header tells of.
struct BinaryTable {
  std::size_t start = 0;  ///< in the table stream
  std::size_t size = 0;
};

class BinaryText {
 public:
  /// @param bytes  the whole file; outlives the object
  /// Errors: 5 for older documents, encrypted and damaged ones, with the reason as an English clause.
  explicit BinaryText(std::string& bytes);

  /// The main text first.
  const std::vector<BinaryStory>& stories() const { return stories_; }
  CompoundStream& tables() { return tables_; }
  /// A table, checked to lie in the stream. Errors: 5 when it does not.
  BinaryTable Table(std::size_t number) const;
  /// Tells that a table has become smaller.
  void ShrinkTable(std::size_t number, std::size_t size);

  /// A character of the whole text. Errors: 5 beyond its end.
  char16_t Character(std::uint32_t position) const;
  /// Replaces it by one that fits: in a text with `HasBytes` one of code page 1252.
  void SetCharacter(std::uint32_t position, char16_t character);

  /// Whether some piece has one byte a character.
  bool HasBytes() const;
  /// Which characters occur anywhere, by code.
  std::vector<bool> UsedCharacters() const;

 private:
  struct Piece {
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    std::size_t offset = 0;  // in the main stream
    unsigned width = 2;      // bytes a character
  };

  void ReadHeader();
  void ReadStories();
  void ReadPieces();
  void AddPiece(std::uint32_t start, std::uint32_t end, std::uint32_t place);
  const Piece& PieceOf(std::uint32_t position) const;
  char16_t Decoded(const Piece& piece, std::uint32_t position) const;

  CompoundFile file_;
  CompoundStream main_;
  CompoundStream tables_;
  std::size_t lengths_ = 0;      // where the lengths of the stories stand in the header
  std::size_t tablePlaces_ = 0;  // and the places of the tables
  std::size_t tableCount_ = 0;
  std::vector<BinaryStory> stories_;
  std::vector<Piece> pieces_;
};

}  // namespace zorkanca
