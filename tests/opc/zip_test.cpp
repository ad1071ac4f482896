// ZIP packages: what is refused, what is read, and that what is written can be read.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "files/atomic_file.h"
#include "opc/deflated_part.h"
#include "opc/zip_reader.h"
#include "opc/zip_writer.h"
#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using ::testing::HasSubstr;

class Zip : public ::testing::Test {
 protected:
  ZipReader Open(const std::string& bytes, const ZipLimits& limits = {}) {
    folder_.Write("a.zip", bytes);
    return ZipReader(folder_.Path("a.zip"), limits);
  }

  // What is said when all entries are read.
  std::string Refusal(const std::string& bytes, const ZipLimits& limits = {}) {
    const Error error = ErrorOf([&] {
      const ZipReader zip = Open(bytes, limits);
      for (const ZipEntry& entry : zip.entries()) zip.Read(entry);
    });
    EXPECT_EQ(error.number(), 5);
    return ToUtf8(error.description());
  }

  // Bytes that deflate to something, without an end that could be foreseen.
  static std::string Prose(std::size_t length) {
    std::string text;
    for (std::uint32_t i = 1; text.size() < length; ++i) text += "row " + std::to_string(i * 2654435761U) + "; ";
    return text.substr(0, length);
  }

  TemporaryFolder folder_;
};

TEST_F(Zip, HostileArchivesAreRefusedWithTheirReason) {
  const std::string small = RawZip({{"a", "1"}});
  const struct {
    std::vector<RawEntry> entries;
    const char* reason;
  } rows[] = {
      {{{"../evil.xml", "x"}}, "part /../evil.xml: its name leaves the package"},
      {{{"a/../../b", "x"}}, "leaves the package"},
      {{{"/etc/passwd", "x"}}, "leaves the package"},
      {{{"C:evil", "x"}}, "leaves the package"},
      {{{"word\\document.xml", "x"}}, "leaves the package"},
      {{{"a//b", "x"}}, "leaves the package"},
      {{{"", "x"}}, "leaves the package"},
      {{{std::string("a\0b", 3), "x"}}, "leaves the package"},
      {{{std::string(2000, 'a'), "x"}}, "leaves the package"},
      {{{"word/a.xml", "1"}, {"Word/A.xml", "2"}}, "part /Word/A.xml: its name occurs twice"},
      {{{"a", "x", 0, 1}}, "it is encrypted"},
      {{{"a", "x", 12}}, "unknown method"},
      {{{"a", "x", 0, 0, {}, 2}}, "sizes contradict"},
      {{{"a", "x", 0, 0, {}, {}, {}, {}, "b"}}, "header contradicts the directory"},
      {{{"a", std::string(50, 'x'), 0, 0, {}, {}, {}, 5}}, "header contradicts the directory"},
      {{{"a", "x", 0, 0, {}, {}, {}, 4000}}, "outside of the package"},
      {{{"a", "x", 8, 0, {}, {}, 4000}}, "outside of the package"},
      {{{"a", small}, {"b", "2"}, {"a", "1", 0, 0, {}, {}, {}, 31}}, "overlaps"},  // a header inside the data of "a"
      {{{"a", "\x03", 8, 0, {}, 0x7FFFFFFF}}, "it is too large"},
      {{{"a", "\x03", 8, 0, {}, 0x00FFFFFF}}, "compressed beyond all measure"},
      {{{"a", "x", 0, 0, 1}}, "part /a: its checksum is wrong"},
      {{{"a", "\x03", 8, 0, 0, 1}}, "compressed data are damaged"},  // an empty stream that told one byte
      {{{"a", "\xFF\xFF", 8, 0, {}, 2}}, "compressed data are damaged"},
  };
  for (const auto& [entries, reason] : rows) EXPECT_THAT(Refusal(RawZip(entries)), HasSubstr(reason));
  EXPECT_THAT(Refusal(RawZip({{"a", "1"}}, 2)), HasSubstr("directory is damaged"));
  EXPECT_THAT(Refusal("PK\5\6"), HasSubstr("no ZIP package"));
  EXPECT_THAT(Refusal(""), HasSubstr("it is empty"));
  EXPECT_EQ(ErrorOf([&] { ZipReader(folder_.Path("none.zip")); }).number(), 53);
  EXPECT_EQ(ErrorOf([&] { ZipReader{folder_.path()}; }).number(), 75);
}

TEST_F(Zip, TheEndIsFoundBeforeAnyComment) {
  const std::string signature = "PK\5\6";
  const std::string zip = RawZip({{"a", "12345"}});
  const auto numbers = [](std::uint16_t comment) {
    return LittleEndian(0, 4) + LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(50, 4) + LittleEndian(0, 4) +
           LittleEndian(comment, 2);
  };
  const std::string comments[] = {
      "",
      "plain",
      signature,
      "x" + signature + "y",
      signature + "less than a record",
      signature + signature,
      // what would be a record whose own comment is longer than the file
      signature + numbers(500),
      signature + numbers(500) + "and more",
      std::string(0xFFFF, 'x'),
  };
  for (const std::string& comment : comments) {
    const std::string bytes = zip.substr(0, zip.size() - 2) + LittleEndian(comment.size(), 2) + comment;
    const ZipReader opened = Open(bytes);
    ASSERT_EQ(opened.entries().size(), 1u) << comment.size();
    EXPECT_EQ(opened.Read(opened.entries()[0]), "12345") << comment.size();
  }
  EXPECT_THAT(Refusal(zip + std::string(0x10000, 'x')), HasSubstr("its end is missing"));
}

TEST_F(Zip, LimitsHoldForWhatTheDirectoryTells) {
  const std::string two = RawZip({{"a", "12345"}, {"b", "12345"}});
  EXPECT_THAT(Refusal(two, {.entries = 1}), HasSubstr("more than 1 parts"));
  EXPECT_THAT(Refusal(two, {.entrySize = 4}), HasSubstr("part /a: it is too large"));
  EXPECT_THAT(Refusal(two, {.packageSize = 9}), HasSubstr("too large together"));
  EXPECT_EQ(Open(two, {.entries = 2, .entrySize = 5, .packageSize = 10}).entries().size(), 2u);
}

TEST_F(Zip, NoInflatedByteBeyondTheToldSizeIsGivenOut) {
  DeflatedPart part;
  part.Append(std::string(300'000, 'x'));
  part.Finish();
  std::string data;
  part.ReadCompressed([&](std::string_view piece) { data += piece; });
  const ZipReader zip = Open(RawZip({{"a", data, 8, 0, part.crc(), 70'000}}));
  std::size_t given = 0;
  EXPECT_THAT(ToUtf8(ErrorOf([&] {
                       zip.Read(zip.entries()[0], [&](std::string_view piece) { given += piece.size(); });
                     }).description()),
              HasSubstr("damaged"));
  EXPECT_LE(given, 70'000u);
}

// Whatever a damaged file is taken for, it is read or refused: no crash, no other error.
TEST_F(Zip, CutAndChangedArchivesAreReadOrRefused) {
  const std::string sound = RawZip(SmallDocument("x"));
  const auto survives = [&](const std::string& bytes) {
    try {
      const ZipReader zip = Open(bytes);
      for (const ZipEntry& entry : zip.entries()) zip.Read(entry);
      return true;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 5) << error.what();
      return false;
    }
  };
  EXPECT_TRUE(survives(sound));
  for (std::size_t length = 0; length < sound.size(); length += 29) EXPECT_FALSE(survives(sound.substr(0, length)));
  for (std::size_t at = 0; at < sound.size(); at += 7) {
    std::string changed = sound;
    changed[at] = static_cast<char>(changed[at] ^ 0xFF);
    survives(changed);
  }
}

TEST_F(Zip, WrittenArchivesAreReadBack) {
  const std::string prose = Prose(300'000);
  DeflatedPart part;
  part.Append(prose);
  part.Finish();
  AtomicFile file(folder_.Path("out.zip"), {});
  ZipWriter writer(file);
  writer.Add("stored", "x");
  writer.Add("bytes", prose);
  writer.Add("ahead", part);
  writer.Begin("streamed").Append(prose);
  writer.End();
  writer.Begin("streamed64", StreamedSize::kLarger).Append(prose);
  writer.End();
  writer.Begin("empty");
  writer.End();
  const ZipReader other = Open(RawZip({{"p\xC5\x99.bin", "raw", 0, 1 << 11}}));
  writer.Copy(other, other.entries()[0]);
  writer.Finish();
  file.Commit();

  const ZipReader zip(folder_.Path("out.zip"));
  const std::pair<const char*, std::string> expected[] = {
      {"stored", "x"},       {"bytes", prose}, {"ahead", prose},         {"streamed", prose},
      {"streamed64", prose}, {"empty", ""},    {"p\xC5\x99.bin", "raw"},
  };
  ASSERT_EQ(zip.entries().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(zip.entries()[i].name, expected[i].first);
    EXPECT_TRUE(zip.Read(zip.entries()[i]) == expected[i].second) << expected[i].first;
  }
  EXPECT_EQ(zip.entries().back().flags, 1 << 11);
  EXPECT_LT(zip.entries()[1].compressedSize, prose.size() / 2);
}

// Numbers that don't fit 32 bits, without writing gigabytes: a directory whose entry points to them.
TEST_F(Zip, Zip64DirectoriesAreFollowed) {
  const std::string plain = RawZip({{"a", "12345"}});
  const std::size_t end = plain.size() - 22;
  const std::size_t directory = plain.find("PK\1\2");
  std::string entry = plain.substr(directory, end - directory);
  entry.replace(20, 8, std::string(8, '\xFF'));  // both sizes
  entry.replace(30, 2, LittleEndian(20, 2));     // length of the extra field
  entry += LittleEndian(1, 2) + LittleEndian(16, 2) + LittleEndian(5, 8) + LittleEndian(5, 8);
  const std::size_t end64 = directory + entry.size();
  const std::string file = plain.substr(0, directory) + entry + "PK\6\6" + LittleEndian(44, 8) + LittleEndian(0, 12) +
                           LittleEndian(1, 8) + LittleEndian(1, 8) + LittleEndian(entry.size(), 8) +
                           LittleEndian(directory, 8) + "PK\6\7" + LittleEndian(0, 4) + LittleEndian(end64, 8) +
                           LittleEndian(1, 4) + "PK\5\6" + LittleEndian(0, 4) + std::string(12, '\xFF') +
                           LittleEndian(0, 2);
  const ZipReader zip = Open(file);
  EXPECT_EQ(zip.Read(zip.entries().at(0)), "12345");
}

TEST_F(Zip, PartsDeflatedAheadAreTheSameInMemoryAndInAFile) {
  const std::string prose = Prose(500'000);
  DeflatedPart inMemory;
  DeflatedPart inFile(1000);
  inMemory.Append(prose);
  for (std::size_t at = 0; at < prose.size(); at += 777) inFile.Append(std::string_view(prose).substr(at, 777));
  for (DeflatedPart* part : {&inMemory, &inFile}) {
    part->Finish();
    std::string back;
    part->Read([&](std::string_view piece) { back += piece; });
    EXPECT_TRUE(back == prose);
    EXPECT_EQ(part->size(), prose.size());
    EXPECT_EQ(part->crc(), PlainCrc(prose));
  }
  std::string compressed[2];
  inMemory.ReadCompressed([&](std::string_view piece) { compressed[0] += piece; });
  inFile.ReadCompressed([&](std::string_view piece) { compressed[1] += piece; });
  EXPECT_TRUE(compressed[0] == compressed[1]);  // whatever pieces it came in
  EXPECT_EQ(compressed[0].size(), inFile.compressedSize());
}

}  // namespace
}  // namespace zorkanca::testing
