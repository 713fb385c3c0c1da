#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "standard/ZOLVotKeyMap.h"

namespace {

// Random inserts, adoptions, erasures and reservations against std::map: probe runs that wrap,
// backward shifts and rehashes must leave every key findable with its value.
TEST(VotKeyMap, AgreesWithAnOrderedMapThroughInsertsErasuresAndRehashes) {
  ZOLVotChars chars;
  ZOLVotKeyMap<int> map(chars);
  std::map<std::string, int> model;
  std::mt19937 random(7);
  auto key = [&] { return "Path." + std::to_string(random() % 600) + "." + std::to_string(random() % 3 + 1); };
  for (int step = 0; step < 20000; ++step) {
    const std::string k = key();
    switch (random() % 5) {
      case 0:
      case 1:
        map[k] = step;
        model[k] = step;
        break;
      case 2: {
        // The key written to the store first, as the load does.
        const ZOLVotSpan span = ZOLVotStore(chars, k);
        map.Adopt(span, ZOLVotHash(k)) = step;
        model[k] = step;
        break;
      }
      case 3:
        EXPECT_EQ(map.Erase(k), static_cast<int>(model.erase(k)));
        break;
      default:
        if (step % 1000 == 0) map.Reserve(map.Size() + random() % 3000);
        break;
    }
  }
  ASSERT_EQ(map.Size(), model.size());
  for (const auto& [k, v] : model) {
    const int* found = map.Find(k);
    ASSERT_NE(found, nullptr) << k;
    EXPECT_EQ(*found, v) << k;
  }
  size_t visited = 0;
  map.ForEach([&](std::string_view k, int v) {
    ++visited;
    EXPECT_EQ(model.at(std::string(k)), v);
  });
  EXPECT_EQ(visited, model.size());
  EXPECT_EQ(map.Find("Path.none.1"), nullptr);
}

// An adopted key is the map's own: no second copy is stored, and a known key keeps its first.
TEST(VotKeyMap, AdoptKeepsTheGivenCopyOfANewKeyOnly) {
  ZOLVotChars chars;
  ZOLVotKeyMap<int> map(chars);
  const ZOLVotSpan span = ZOLVotStore(chars, "A.B.1");
  map.Adopt(span, ZOLVotHash("A.B.1")) = 1;
  EXPECT_EQ(chars.size(), 5u);
  const ZOLVotSpan again = ZOLVotStore(chars, "A.B.1");
  map.Adopt(again, ZOLVotHash("A.B.1")) = 2;
  EXPECT_EQ(*map.Find("A.B.1"), 2);
  map.ForEach([&](std::string_view k, int) { EXPECT_EQ(k.data(), chars.data() + span.off); });
  map.Reserve(1000);
  EXPECT_EQ(*map.Find("A.B.1"), 2);
  EXPECT_EQ(map.Size(), 1u);
}

}  // namespace
