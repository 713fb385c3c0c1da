// The secret of the key maps' hash, made before the library's other statics.
#include "standard/ZOLVotKeyMap.h"

#include <sys/random.h>

#include <chrono>

namespace {

uint64_t DrawSecret() {
  uint64_t secret = 0;
  if (getrandom(&secret, sizeof secret, GRND_NONBLOCK) != static_cast<ssize_t>(sizeof secret)) {
    // No entropy yet (early boot): the clock and where the library landed still differ per process.
    secret = static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
             reinterpret_cast<uintptr_t>(&secret) ^ reinterpret_cast<uintptr_t>(&DrawSecret);
  }
  return secret;
}

}  // namespace

uint64_t g_ZOLVotHashSecret = 0;

// Before the library's own static initialisers, which may file keys already.
[[gnu::constructor(101)]] static void MakeHashSecret() { g_ZOLVotHashSecret = DrawSecret(); }
