#include "store/text_arena.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace sched {
namespace {

// A handle is a chunk's number above the place of the texts in it, plus one so that no place
// gives kEmpty. Texts start within the first 1 MiB of a chunk; larger texts get a chunk of their
// own.
constexpr unsigned kPlaceBits = 20;
constexpr std::size_t kChunkSize = std::size_t{1} << kPlaceBits;
// The last chunk's last place would give a handle past 32 bits.
constexpr std::size_t kMostChunks = (std::size_t{1} << (32 - kPlaceBits)) - 1;

// A length below 255 takes one byte; a longer one 255 and four bytes.
constexpr std::uint8_t kLongLength = 255;

std::size_t LengthBytes(std::size_t length) {
  return length < kLongLength ? 1 : 5;
}

char* PutLength(char* at, std::size_t length) {
  if (length < kLongLength) {
    *at = static_cast<char>(length);
    return at + 1;
  }
  *at++ = static_cast<char>(kLongLength);
  const auto value = static_cast<std::uint32_t>(length);
  std::memcpy(at, &value, sizeof value);
  return at + sizeof value;
}

const char* TakeLength(const char* at, std::size_t& length) {
  const auto first = static_cast<std::uint8_t>(*at++);
  if (first != kLongLength) {
    length = first;
    return at;
  }
  std::uint32_t value = 0;
  std::memcpy(&value, at, sizeof value);
  length = value;
  return at + sizeof value;
}

}  // namespace

TextArena::TextArena(const TextArena& other) {
  chunks_.reserve(other.chunks_.size());
  for (const Chunk& chunk : other.chunks_) {
    chunks_.push_back({std::make_unique_for_overwrite<char[]>(chunk.size), chunk.size, chunk.used});
    std::memcpy(chunks_.back().bytes.get(), chunk.bytes.get(), chunk.used);
  }
}

TextArena& TextArena::operator=(const TextArena& other) {
  if (this != &other) *this = TextArena(other);
  return *this;
}

TextArena::Handle TextArena::Add(const RowTexts& texts) {
  const std::string_view parts[] = {texts.Title, texts.Place, texts.Memo, texts.AlarmSound};
  std::size_t size = 0;
  for (std::string_view part : parts) size += LengthBytes(part.size()) + part.size();
  if (size == 4) return kEmpty;
  Handle handle = kEmpty;
  char* at = Room(size, handle);
  for (std::string_view part : parts) at = PutLength(at, part.size());
  for (std::string_view part : parts) {
    if (!part.empty()) std::memcpy(at, part.data(), part.size());
    at += part.size();
  }
  return handle;
}

RowTexts TextArena::Get(Handle handle) const {
  if (handle == kEmpty) return {};
  const Handle place = handle - 1;
  const Chunk& chunk = chunks_[place >> kPlaceBits];
  const char* at = chunk.bytes.get() + (place & (kChunkSize - 1));
  std::size_t lengths[4];
  for (std::size_t& length : lengths) at = TakeLength(at, length);
  std::string_view parts[4];
  for (int i = 0; i < 4; ++i) {
    parts[i] = {at, lengths[i]};
    at += lengths[i];
  }
  return {parts[0], parts[1], parts[2], parts[3]};
}

char* TextArena::Room(std::size_t size, Handle& handle) {
  if (chunks_.empty() || chunks_.back().size - chunks_.back().used < size ||
      chunks_.back().used >= kChunkSize) {
    if (chunks_.size() == kMostChunks) throw std::bad_alloc();
    const std::size_t chunkSize = std::max(size, kChunkSize);
    chunks_.push_back({std::make_unique_for_overwrite<char[]>(chunkSize), chunkSize, 0});
  }
  Chunk& chunk = chunks_.back();
  handle = static_cast<Handle>(((chunks_.size() - 1) << kPlaceBits) | chunk.used) + 1;
  char* at = chunk.bytes.get() + chunk.used;
  chunk.used += size;
  return at;
}

void TextArena::Clear() {
  chunks_.clear();
}

}  // namespace sched
