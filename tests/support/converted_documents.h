// Documents of earlier formats, which LibreOffice makes of our own packages. It knows no switches of fields and no
// fields inside fields, so the codes are written over afterwards, as another program would have written them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "libreoffice/child_group.h"
#include "libreoffice/fields/binary_text.h"
#include "opc/package.h"
#include "runtime/code_page.h"
#include "support/temporary_folder.h"

namespace zorkanca::testing {

/// Converts a file of the folder; the result has the same name and the other extension.
inline void MakeWithLibreOffice(const TemporaryFolder& folder, const std::string& name, const std::string& extension) {
  RunInGroup({.arguments = {"/usr/bin/soffice", "-env:UserInstallation=file://" + folder.Path("profile"), "--headless",
                            "--convert-to", extension, "--outdir", folder.Path("."), folder.Path(name)},
              .environment = {"SAL_USE_VCLPLUGIN=svp"},
              .outputFile = folder.Path("said"),
              .patience = std::chrono::seconds(120),
              .cancelled = {}});
}

/// The fields of a binary document, by their number in the order of the file, opened to be written over.
class OverwrittenFields {
 public:
  explicit OverwrittenFields(std::string& bytes) : text_(bytes) {
    for (const BinaryStory& story : text_.stories()) {
      const BinaryTable table = text_.Table(story.fields);
      const std::size_t count = table.size == 0 ? 0 : (table.size - 4) / 6;
      for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t at = story.start + text_.tables().Number(table.start + 4 * i, 4);
        characters_.push_back({at, table.start + 4 * (count + 1) + 2 * i});
      }
    }
  }

  /// Writes a code over an old one that is at least as long, and its type. The field has three characters.
  void Code(std::size_t field, TextView code, std::uint8_t type) {
    Type(3 * field, 0x13, type);
    Write(3 * field, code);
  }
  /// Makes two neighbours one that has the other in its code; what was between them becomes the result of the inner.
  void Nest(std::size_t field, TextView before, std::uint8_t type, TextView inner, TextView behind) {
    const std::size_t first = 3 * field;
    Code(field, before, type);
    Type(first + 1, 0x13, 59);
    Write(first + 1, inner);
    Type(first + 2, 0x14, 0xFF);
    Type(first + 3, 0x15, 0x80);
    Write(first + 3, behind);
  }

 private:
  struct Character {
    std::uint32_t position;
    std::size_t value;  // in the tables
  };

  void Type(std::size_t character, std::uint8_t mark, std::uint8_t value) {
    text_.SetCharacter(characters_.at(character).position, mark);
    text_.tables().Put(characters_[character].value, mark | static_cast<std::uint32_t>(value) << 8, 2);
  }
  // Fills the space up to the next character of a field.
  void Write(std::size_t character, TextView code) {
    const std::uint32_t start = characters_.at(character).position + 1;
    const std::uint32_t end = characters_.at(character + 1).position;
    EXPECT_LE(code.size(), end - start);
    for (std::uint32_t at = start; at < end; ++at) {
      text_.SetCharacter(at, at - start < code.size() ? code[at - start] : u' ');
    }
  }

  BinaryText text_;
  std::vector<Character> characters_;
};

/// The same document with one byte a character, as Word writes what code page 1252 holds; other characters become
/// similar ones. LibreOffice has written one piece of text.
inline void WriteTextInBytes(std::string& bytes) {
  const CompoundFile file(bytes);
  CompoundStream main = file.Find(u"WordDocument").value();
  CompoundStream tables = file.Find(main.Number(10, 2) & 0x0200 ? u"1Table" : u"0Table").value();
  const auto table = [&](std::size_t number) { return main.Number(154 + 8 * number, 4); };
  const auto countOf = [&](std::size_t number) { return (main.Number(158 + 8 * number, 4) - 4) / 8; };
  const std::size_t pieces = table(33) + 5;
  ASSERT_EQ(tables.Number(pieces - 4, 4), 16U);
  const std::uint32_t length = tables.Number(pieces + 4, 4);
  const std::uint32_t start = tables.Number(pieces + 10, 4);
  for (std::uint32_t i = 0; i < length; ++i) {
    main.Put(start + i, CodePage::Get(1252).Encode(static_cast<char16_t>(main.Number(start + 2 * i, 2))), 1);
  }
  tables.Put(pieces + 10, start * 2 | 0x40000000, 4);
  const auto move = [&](CompoundStream& stream, std::size_t at) {
    const std::uint32_t place = stream.Number(at, 4);
    if (place >= start && place <= start + 2 * length) stream.Put(at, start + (place - start) / 2, 4);
  };
  for (const std::size_t number :
       {std::size_t{12}, std::size_t{13}}) {  // where the formatting of characters and of paragraphs lies
    for (std::size_t i = 0; i <= countOf(number); ++i) move(tables, table(number) + 4 * i);
    for (std::size_t i = 0; i < countOf(number); ++i) {
      const std::size_t page = tables.Number(table(number) + 4 * (countOf(number) + 1 + i), 4) * 512;
      for (std::size_t run = 0; run <= main.Number(page + 511, 1); ++run) move(main, page + 4 * run);
    }
  }
}

/// The fields of a part: "{ MERGEFIELD Den \@ d|}", each inside the code or the result of another, blanks folded.
inline std::string FieldsOf(const Package& package, const std::string& part) {
  const std::string xml = package.ReadPart(part);
  std::string fields;
  for (std::size_t at = xml.find('<'); at != xml.npos; at = xml.find('<', at + 1)) {
    const std::string_view rest = std::string_view(xml).substr(at);
    if (rest.starts_with("<w:fldChar ")) {
      const std::string_view tag = rest.substr(0, rest.find('>'));
      fields += tag.find("\"begin\"") != tag.npos ? '{' : tag.find("\"separate\"") != tag.npos ? '|' : '}';
    } else if (rest.starts_with("<w:instrText")) {
      const std::size_t start = rest.find('>') + 1;
      for (const char c : rest.substr(start, rest.find('<', start) - start)) {
        if (c != ' ' || fields.back() != ' ') fields += c;
      }
    }
  }
  return fields;
}

}  // namespace zorkanca::testing
