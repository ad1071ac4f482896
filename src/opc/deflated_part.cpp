#include "opc/deflated_part.h"

#include <unistd.h>

#include <cerrno>

#include "files/file_bytes.h"
#include "files/system_error.h"
#include "files/unnamed_file.h"
#include "opc/inflater.h"

namespace zorkanca {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

}  // namespace

DeflatedPart::DeflatedPart(std::size_t memoryLimit) : store_(memoryLimit), deflater_(store_) {}

void DeflatedPart::Finish() {
  deflater_.Finish();
}

void DeflatedPart::ReadCompressed(const Take& take) const {
  store_.Read(take);
}

void DeflatedPart::Read(const Take& take) const {
  Inflater inflater(take, size());
  bool sound = true;
  store_.Read([&](std::string_view bytes) { sound = sound && inflater.Append(bytes); });
  if (!sound || !inflater.ended() || inflater.crc() != crc()) RaiseSystemError(EIO);
}

void DeflatedPart::Store::Append(std::string_view bytes) {
  if (inMemory_ + bytes.size() <= memoryLimit_ && !file_) {
    chunks_.emplace_back(bytes);
    inMemory_ += bytes.size();
  } else {
    Spill(bytes);
  }
}

void DeflatedPart::Store::Spill(std::string_view bytes) {
  if (!file_) file_ = OpenUnnamedFile();
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(file_.get(), bytes.data(), bytes.size()); });
    if (count < 0) RaiseSystemError(errno);
    fileSize_ += static_cast<std::uint64_t>(count);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void DeflatedPart::Store::Read(const Take& take) const {
  for (const std::string& chunk : chunks_) take(chunk);
  std::string block(file_ ? kBlock : 0, '\0');
  for (std::uint64_t offset = 0; offset < fileSize_;) {
    const std::size_t count = ReadAt(file_, offset, block.data(), block.size());
    if (count == 0) RaiseSystemError(EIO);
    take({block.data(), count});
    offset += count;
  }
}

}  // namespace zorkanca
