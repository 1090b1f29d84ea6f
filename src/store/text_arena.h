#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace sched {

// The four texts of a row: UTF-8, line breaks CR LF, no tabs.
struct RowTexts {
  std::string_view Title;
  std::string_view Place;
  std::string_view Memo;
  std::string_view AlarmSound;
  friend bool operator==(const RowTexts&, const RowTexts&) = default;
};

// The texts of a table's rows, kept together in large blocks instead of one allocation per
// text. A row holds a 32-bit handle to its four texts; rows that show the same item share one.
// Texts are never changed in place: a change adds the new texts and the row takes their handle.
// What the arena gives stays valid until it is cleared, since its blocks never move.
class TextArena {
 public:
  using Handle = std::uint32_t;
  // The handle of four empty texts, which needs no room.
  static constexpr Handle kEmpty = 0;

  TextArena() = default;
  TextArena(TextArena&&) = default;
  TextArena& operator=(TextArena&&) = default;
  // A copy holds the same texts under the same handles.
  TextArena(const TextArena& other);
  TextArena& operator=(const TextArena& other);

  Handle Add(const RowTexts& texts);
  RowTexts Get(Handle handle) const;
  void Clear();

 private:
  struct Chunk {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::size_t used = 0;
  };
  char* Room(std::size_t size, Handle& handle);

  std::vector<Chunk> chunks_;
};

}  // namespace sched
