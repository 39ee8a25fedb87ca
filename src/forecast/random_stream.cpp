#include "forecast/random_stream.h"

#include <bit>

namespace pedigreewatch {

std::uint64_t mix_next(std::uint64_t& state) {
  state += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31);
}

std::uint64_t RandomStream::next() {
  const std::uint64_t result = std::rotl(state[1] * 5, 7) * 9;
  const std::uint64_t shifted = state[1] << 17;
  state[2] ^= state[0];
  state[3] ^= state[1];
  state[1] ^= state[2];
  state[0] ^= state[3];
  state[2] ^= shifted;
  state[3] = std::rotl(state[3], 45);
  return result;
}

std::int32_t RandomStream::below(std::int32_t limit) {
  const std::uint64_t drawn = next();
  if (limit < 2) return 0;
  return static_cast<std::int32_t>(((drawn >> 32) * static_cast<std::uint64_t>(limit)) >> 32);
}

std::size_t RandomStream::place_among(std::size_t count) {
  const std::uint64_t drawn = next();
  return static_cast<std::size_t>(((drawn >> 32) * count) >> 32);
}

double RandomStream::unit() {
  constexpr double smallest_step = 1.0 / 9007199254740992.0;  // 2 to the power of -53
  return static_cast<double>(next() >> 11) * smallest_step;
}

RandomStream make_stream(std::uint64_t seed) {
  RandomStream stream;
  for (std::uint64_t& part : stream.state) part = mix_next(seed);
  return stream;
}

RandomStream make_stream(std::uint64_t seed, std::int32_t replicate, std::int32_t year, DrawPurpose purpose) {
  std::uint64_t state = seed;
  for (const std::uint64_t part :
       {static_cast<std::uint64_t>(static_cast<std::uint32_t>(replicate)),
        static_cast<std::uint64_t>(static_cast<std::uint32_t>(year)), static_cast<std::uint64_t>(purpose)}) {
    state = mix_next(state) + part;
  }
  return make_stream(mix_next(state));
}

}  // namespace pedigreewatch
