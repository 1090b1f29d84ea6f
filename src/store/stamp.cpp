#include "store/stamp.h"

#include <chrono>
#include <thread>

namespace sched {
namespace {
constexpr std::uint32_t kTopBits = 0xC0000000u;
constexpr std::uint32_t kLinkBit = 0x40000000u;
constexpr std::uint32_t kTopBit = 0x80000000u;
}  // namespace

std::int32_t MakeStamp(const Clock& clock) {
  return StampOf(clock.Now());
}

std::int32_t StampOf(const DateTime& now) {
  const auto term = static_cast<std::uint32_t>(((now.year % 10) * 16 + now.month) * 32 + now.day);
  const std::uint32_t packed = kTopBits | term << 16 | static_cast<std::uint32_t>(now.hour) << 11 |
                               static_cast<std::uint32_t>(now.minute) << 5 |
                               static_cast<std::uint32_t>(now.second / 2);
  return static_cast<std::int32_t>(packed);
}

int IsLinkDone(std::int32_t stamp) {
  return (static_cast<std::uint32_t>(stamp) & kLinkBit) == 0 ? -1 : 0;
}

std::int32_t ClearLinkBit(std::int32_t stamp) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(stamp) & ~kLinkBit);
}

std::int32_t SetTopBit(std::int32_t stamp) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(stamp) | kTopBit);
}

std::int32_t SetTopBits(std::int32_t stamp) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(stamp) | kTopBits);
}

void PauseTick(const Clock& clock) {
  const std::uint64_t entry = clock.TickCount();
  while (clock.TickCount() == entry) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

}  // namespace sched
