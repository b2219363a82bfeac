#include "platform/gzip.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr std::size_t kBlock = 64 * 1024;

TEST(Gunzipped, GivesBackWhatWasPackedUpToTheBound) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kBlock - 1, kBlock, 5 * kBlock}) {
    SCOPED_TRACE(size);
    std::string text(size, 'x');
    for (std::size_t i = 0; i < size; i += 7) text[i] = static_cast<char>(i);
    const std::string packed = gzipped(text).value_or("");
    EXPECT_TRUE(isGzip(packed));
    const Gunzipped unpacked = gunzipped(packed, size);
    EXPECT_EQ(unpacked.failure, GunzipFailure::none);
    EXPECT_EQ(unpacked.text, text);
    if (size == 0) continue;
    const Gunzipped bounded = gunzipped(packed, size - 1);
    EXPECT_EQ(bounded.failure, GunzipFailure::tooLarge);
    EXPECT_EQ(bounded.text, "");
  }
}

TEST(Gunzipped, ReadsFilesOfSeveralPieces) {
  const std::string packed =
      gzipped("one ").value_or("") + gzipped("").value_or("") + gzipped("two").value_or("");
  EXPECT_EQ(gunzipped(packed, 7).text, "one two");
  EXPECT_EQ(gunzipped(packed, 6).failure, GunzipFailure::tooLarge);  // the bound is that of the whole
}

TEST(Gunzipped, TellsDamage) {
  const std::string packed = gzipped("a sitemap of some length, and of some more").value_or("");
  for (std::size_t length = 0; length < packed.size(); ++length) {
    EXPECT_EQ(gunzipped(packed.substr(0, length), 1000).failure, GunzipFailure::damaged) << length;
  }
  std::string wrongChecksum = packed;
  wrongChecksum[packed.size() - 6] ^= 1;
  for (const std::string& damaged : {wrongChecksum, packed + "rest", packed + packed.substr(0, 12),
                                     std::string("<urlset/>"), std::string("\x1F\x8B")}) {
    const Gunzipped unpacked = gunzipped(damaged, 1000);
    EXPECT_EQ(unpacked.failure, GunzipFailure::damaged) << damaged;
    EXPECT_EQ(unpacked.text, "");
  }
}

}  // namespace
}  // namespace platform
