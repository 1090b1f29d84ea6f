#include "shell/stock_sounds.h"

#include <gtest/gtest.h>

#include <set>

#include "core/text_case.h"
#include "store/sch_record.h"

namespace sched {
namespace {

// What a player of the device's melodies accepts: the header, whole pairs, the end marker only
// at the end, and notes that sound no longer than their time.
TEST(StockMelodies, AreValidDeviceMelodies) {
  std::set<std::string> names;
  for (const Melody& melody : StockMelodies()) {
    const std::vector<std::uint8_t> bytes = EncodeSnd(melody);
    ASSERT_GE(bytes.size(), 6u) << melody.fileName;
    EXPECT_EQ(bytes[0], 7);
    EXPECT_EQ(bytes[1], 0);
    EXPECT_GE(bytes[2], 1) << melody.fileName;
    EXPECT_LE(bytes[2], 32) << melody.fileName;
    EXPECT_EQ(bytes[3], 0);
    EXPECT_EQ(bytes.size() % 2, 0u);
    for (std::size_t i = 4; i + 2 < bytes.size(); i += 2) {
      EXPECT_FALSE(bytes[i] == 0xFF && bytes[i + 1] == 0xFF) << melody.fileName << " pair " << i;
      EXPECT_LE(bytes[i + 1] >> 4, 4) << melody.fileName << " pair " << i;
    }
    EXPECT_EQ(bytes[bytes.size() - 2], 0xFF);
    EXPECT_EQ(bytes.back(), 0xFF);
    EXPECT_TRUE(names.insert(ToLowerAscii(melody.fileName)).second)
        << "two files " << melody.fileName;
  }
  EXPECT_TRUE(names.count(ToLowerAscii(std::string(kDefaultAlarmSound) + ".snd")))
      << "new alarms sound " << kDefaultAlarmSound;
}

}  // namespace
}  // namespace sched
