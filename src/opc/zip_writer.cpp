#include "opc/zip_writer.h"

#include "opc/zip_format.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {
// 1.1.1980 0:00, the first moment that the format knows and the one that the office itself writes.
constexpr std::uint16_t kTime = 0;
constexpr std::uint16_t kDate = 1 << 5 | 1;
constexpr std::uint16_t kVersion = 20;
constexpr std::uint16_t kVersion64 = 45;
}  // namespace

// Gathers small records to blocks and knows the offset.
class ZipWriter::Output final : public PartSink {
 public:
  explicit Output(ByteSink& sink) : sink_(sink) {}

  void Append(std::string_view bytes) override {
    offset_ += bytes.size();
    if (buffer_.size() + bytes.size() > kBlock) Flush();
    if (bytes.size() > kBlock) {
      sink_.Write(bytes);
    } else {
      buffer_ += bytes;
    }
  }
  void Flush() {
    if (!buffer_.empty()) sink_.Write(buffer_);
    buffer_.clear();
  }
  std::uint64_t offset() const { return offset_; }

 private:
  static constexpr std::size_t kBlock = 64 * 1024;

  ByteSink& sink_;
  std::string buffer_;
  std::uint64_t offset_ = 0;
};

struct ZipWriter::Entry {
  std::string name;
  std::uint16_t flags = 0;
  std::uint16_t method = zip::kDeflated;
  std::uint32_t crc = 0;
  std::uint64_t compressedSize = 0;
  std::uint64_t size = 0;
  std::uint64_t offset = 0;
  bool sizes64 = false;  // in the local header

  std::uint16_t Version() const { return sizes64 || offset >= zip::kIn64For32 ? kVersion64 : kVersion; }
};

// The entry that is being produced.
struct ZipWriter::Streamed final : PartSink {
  explicit Streamed(PartSink& output) : deflater(output) {}
  void Append(std::string_view bytes) override { deflater.Append(bytes); }

  Deflater deflater;
};

namespace {

bool Needs64(std::uint64_t size, std::uint64_t compressedSize) {
  return size >= zip::kIn64For32 || compressedSize >= zip::kIn64For32;
}

}  // namespace

ZipWriter::ZipWriter(ByteSink& sink) : output_(std::make_unique<Output>(sink)) {}

ZipWriter::~ZipWriter() = default;

void ZipWriter::Copy(const ZipReader& source, const ZipEntry& entry) {
  const bool sizes64 = Needs64(entry.size, entry.compressedSize);
  WriteLocalHeader({.name = entry.name,
                    .flags = static_cast<std::uint16_t>(entry.flags & zip::kFlagUtf8),
                    .method = entry.method,
                    .crc = entry.crc,
                    .compressedSize = entry.compressedSize,
                    .size = entry.size,
                    .sizes64 = sizes64});
  source.ReadCompressed(entry, [&](std::string_view bytes) { output_->Append(bytes); });
}

void ZipWriter::Add(std::string_view name, const DeflatedPart& part) {
  WriteLocalHeader({.name = std::string(name),
                    .crc = part.crc(),
                    .compressedSize = part.compressedSize(),
                    .size = part.size(),
                    .sizes64 = Needs64(part.size(), part.compressedSize())});
  part.ReadCompressed([&](std::string_view bytes) { output_->Append(bytes); });
}

void ZipWriter::Add(std::string_view name, std::string_view bytes) {
  StringSink compressed;
  Deflater deflater(compressed);
  deflater.Append(bytes);
  deflater.Finish();
  const bool smaller = compressed.bytes().size() < bytes.size();
  const std::string_view data = smaller ? std::string_view(compressed.bytes()) : bytes;
  WriteLocalHeader({.name = std::string(name),
                    .method = smaller ? zip::kDeflated : zip::kStored,
                    .crc = deflater.crc(),
                    .compressedSize = data.size(),
                    .size = bytes.size(),
                    .sizes64 = Needs64(bytes.size(), data.size())});
  output_->Append(data);
}

PartSink& ZipWriter::Begin(std::string_view name, StreamedSize size) {
  WriteLocalHeader(
      {.name = std::string(name), .flags = zip::kFlagDescriptor, .sizes64 = size == StreamedSize::kLarger});
  streamed_ = std::make_unique<Streamed>(*output_);
  return *streamed_;
}

void ZipWriter::End() {
  Deflater& deflater = streamed_->deflater;
  deflater.Finish();
  Entry& entry = entries_.back();
  entry.crc = deflater.crc();
  entry.size = deflater.size();
  entry.compressedSize = deflater.compressedSize();
  streamed_.reset();
  if (!entry.sizes64 && Needs64(entry.size, entry.compressedSize)) {
    Raise(RuntimeError::kInvalidCall, u"Part " + FromUtf8(entry.name) + u" grew beyond 4 GB.");
  }
  zip::Record record;
  record.U32(zip::kDataDescriptor).U32(entry.crc);
  if (entry.sizes64) {
    record.U64(entry.compressedSize).U64(entry.size);
  } else {
    record.U32(entry.compressedSize).U32(entry.size);
  }
  output_->Append(record.bytes());
}

void ZipWriter::WriteLocalHeader(const Entry& newEntry) {
  Entry& entry = entries_.emplace_back(newEntry);
  entry.offset = output_->offset();
  const bool in64 = entry.sizes64;
  zip::Record record;
  record.U32(zip::kLocalHeader).U16(entry.Version()).U16(entry.flags).U16(entry.method).U16(kTime).U16(kDate);
  record.U32(entry.crc)
      .U32(in64 ? zip::kIn64For32 : entry.compressedSize)
      .U32(in64 ? zip::kIn64For32 : entry.size)
      .U16(entry.name.size())
      .U16(in64 ? 20U : 0U)
      .Bytes(entry.name);
  if (in64) record.U16(zip::kZip64Extra).U16(16).U64(entry.size).U64(entry.compressedSize);
  output_->Append(record.bytes());
}

void ZipWriter::WriteDirectoryEntry(const Entry& entry) {
  zip::Record extra;  // in the format's order: size, compressed size, offset
  const auto in32 = [&extra](std::uint64_t number, bool forced) -> std::uint64_t {
    if (!forced && number < zip::kIn64For32) return number;
    extra.U64(number);
    return zip::kIn64For32;
  };
  const bool sizes64 = Needs64(entry.size, entry.compressedSize);
  const std::uint64_t size = in32(entry.size, sizes64);
  const std::uint64_t compressedSize = in32(entry.compressedSize, sizes64);
  const std::uint64_t offset = in32(entry.offset, false);
  const std::size_t extraLength = extra.bytes().empty() ? 0 : extra.bytes().size() + 4;

  zip::Record record;
  record.U32(zip::kDirectoryEntry).U16(entry.Version()).U16(entry.Version()).U16(entry.flags).U16(entry.method);
  record.U16(kTime).U16(kDate).U32(entry.crc).U32(compressedSize).U32(size);
  record.U16(entry.name.size()).U16(extraLength).U16(0).U16(0).U16(0).U32(0).U32(offset).Bytes(entry.name);
  if (extraLength > 0) record.U16(zip::kZip64Extra).U16(extra.bytes().size()).Bytes(extra.bytes());
  output_->Append(record.bytes());
}

void ZipWriter::Finish() {
  const std::uint64_t start = output_->offset();
  for (const Entry& entry : entries_) WriteDirectoryEntry(entry);
  const std::uint64_t size = output_->offset() - start;
  const std::uint64_t count = entries_.size();
  const bool in64 = start >= zip::kIn64For32 || size >= zip::kIn64For32 || count >= zip::kIn64For16;
  zip::Record record;
  if (in64) {
    const std::uint64_t place = output_->offset();
    record.U32(zip::kDirectoryEnd64).U64(zip::kDirectoryEnd64Length - 12).U16(kVersion64).U16(kVersion64);
    record.U32(0).U32(0).U64(count).U64(count).U64(size).U64(start);
    record.U32(zip::kDirectoryEndLocator64).U32(0).U64(place).U32(1);
  }
  const std::uint64_t shownCount = in64 ? zip::kIn64For16 : count;
  record.U32(zip::kDirectoryEnd).U16(0).U16(0).U16(shownCount).U16(shownCount);
  record.U32(in64 ? zip::kIn64For32 : size).U32(in64 ? zip::kIn64For32 : start).U16(0);
  output_->Append(record.bytes());
  output_->Flush();
}

}  // namespace zorkanca
