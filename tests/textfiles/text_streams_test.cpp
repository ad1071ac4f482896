// Readers and writers of text over bytes that come and go in pieces.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/text_support.h"
#include "textfiles/text_reader.h"
#include "textfiles/text_writer.h"

namespace zorkanca::testing {
namespace {

using std::string_literals::operator""s;

class BytesInMemory final : public ByteSink {
 public:
  explicit BytesInMemory(std::string& bytes) : bytes_(bytes) {}
  void Write(std::string_view bytes) override { bytes_ += bytes; }
  void Commit() override {}

 private:
  std::string& bytes_;
};

/// Hands out its bytes a few at a time.
class Pieces final : public ByteSource {
 public:
  Pieces(std::string bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
  std::size_t Read(std::span<char> room) override {
    const std::size_t count = std::min({size_, room.size(), bytes_.size() - at_});
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, room.begin());
    at_ += count;
    return count;
  }

 private:
  std::string bytes_;
  std::size_t size_;
  std::size_t at_ = 0;
};

constexpr std::size_t kWhole = 1 << 30;

TextReader ReaderOf(std::string bytes, std::size_t pieceSize, TextFormat format) {
  return TextReader(std::make_unique<Pieces>(std::move(bytes), pieceSize), format, CodePage::Get(1250));
}

// Lines of all lengths around the size of the buffers, so that ends and units are cut by them.
TEST(TextStreams, BuffersLeaveNoSeams) {
  for (const TextFormat format : {TextFormat::kAnsi, TextFormat::kUnicode, TextFormat::kUtf8}) {
    std::vector<Text> lines;
    for (std::size_t length = 0; length < 70; ++length) lines.push_back(Text(length * 1021 + 1, u'č'));
    std::string bytes;
    TextWriter writer(std::make_unique<BytesInMemory>(bytes), format, CodePage::Get(1250));
    for (const Text& line : lines) writer.WriteLine(line);
    writer.Close();
    for (const std::size_t pieceSize : {kWhole, std::size_t{65537}, std::size_t{4093}}) {
      TextReader reader = ReaderOf(bytes, pieceSize, format);
      for (const Text& line : lines) ASSERT_TRUE(reader.ReadLine() == line) << line.size();
      EXPECT_TRUE(reader.AtEndOfStream());
      EXPECT_EQ(ReaderOf(bytes, pieceSize, format).ReadAll(), Join(lines, kCrLf).append(kCrLf));
    }
  }
}

TEST(TextStreams, UnitsMayComeInHalves) {
  const std::string bytes = "\xFF\xFE\x0D\x01\x61\0b"s;
  for (std::size_t pieceSize = 1; pieceSize < 5; ++pieceSize) {
    TextReader reader = ReaderOf(bytes, pieceSize, TextFormat::kUnicode);
    EXPECT_EQ(Shown(reader.ReadAll()), "čab") << "the half at the end is not lost";
  }
}

TEST(TextStreams, Utf8MayComeInPieces) {
  const std::string bytes =
      "\xEF\xBB\xBF"
      "a\xC5\xBE\xE2\x98\xBA\xF0\x9F\x98\x80"
      "b\xC5";
  for (std::size_t pieceSize = 1; pieceSize < 8; ++pieceSize) {
    TextReader reader = ReaderOf(bytes, pieceSize, TextFormat::kUtf8);
    EXPECT_EQ(ToUtf8(reader.ReadAll()), bytes.substr(3)) << "a mark is skipped, half a character at the end is kept";
  }
}

TEST(TextStreams, CharactersThatThePageDoesNotHaveAreCounted) {
  std::string bytes;
  TextWriter ansi(std::make_unique<BytesInMemory>(bytes), TextFormat::kAnsi, CodePage::Get(1250));
  ansi.Write(u"Žluťoučký kůň, \x3B1\x3B2 and \xD83D\xDE00");
  EXPECT_EQ(ansi.LostCharacters(), 3);
  TextWriter unicode(std::make_unique<BytesInMemory>(bytes), TextFormat::kUtf8, CodePage::Get(1250));
  unicode.Write(u"\x3B1");
  EXPECT_EQ(unicode.LostCharacters(), 0);
}

}  // namespace
}  // namespace zorkanca::testing
