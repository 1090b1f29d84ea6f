#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sched {

// Gives the pages of a file's bytes in memory back to the system once every byte on them has
// been read, so that a large file is not held twice, as bytes and as the rows made of them.
// Pages are given back when asked, so that bytes just read stay readable until then.
class SpentPages {
 public:
  // `owned` is the buffer when its pages are to be given back, null when they are not.
  SpentPages(std::uint8_t* owned, std::size_t size);

  // Counts bytes [first, last) as read; each byte is counted once.
  void Read(std::size_t first, std::size_t last);
  // Gives back the pages read through since the last call.
  void Release();

 private:
  std::uint8_t* bytes_;
  std::size_t page_;
  int shift_;                        // page_ is 1 << shift_
  std::size_t head_ = 0;             // bytes before the first whole page
  std::vector<std::uint32_t> read_;  // bytes read of each whole page
  std::vector<std::size_t> spent_;   // pages read through, not yet given back
};

}  // namespace sched
