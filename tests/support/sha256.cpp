// Written for short texts: plain rather than fast.

#include "support/sha256.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

namespace pedigreewatch::test {
namespace {

/// The first 32 bits behind the point of a root of the `count` first primes.
template <typename Root>
std::vector<std::uint32_t> fractions_of_primes(std::size_t count, Root root) {
  std::vector<std::uint32_t> fractions;
  for (unsigned number = 2; fractions.size() < count; ++number) {
    bool is_prime = true;
    for (unsigned divisor = 2; divisor * divisor <= number; ++divisor) is_prime = is_prime && number % divisor != 0;
    if (!is_prime) continue;
    const long double value = root(static_cast<long double>(number));
    fractions.push_back(static_cast<std::uint32_t>((value - std::floor(value)) * 4294967296.0L));
  }
  return fractions;
}

std::vector<unsigned char> padded(std::string_view bytes) {
  std::vector<unsigned char> all(bytes.begin(), bytes.end());
  all.push_back(0x80);
  while (all.size() % 64 != 56) all.push_back(0);
  for (int shift = 56; shift >= 0; shift -= 8) {
    all.push_back(static_cast<unsigned char>((std::uint64_t{bytes.size()} * 8) >> shift & 0xFF));
  }
  return all;
}

std::array<std::uint32_t, 64> schedule(const unsigned char* block) {
  std::array<std::uint32_t, 64> w{};
  for (std::size_t i = 0; i < 16; ++i) {
    for (std::size_t byte = 0; byte < 4; ++byte) w[i] = w[i] << 8 | block[4 * i + byte];
  }
  for (std::size_t i = 16; i < 64; ++i) {
    const std::uint32_t s0 = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ w[i - 15] >> 3;
    const std::uint32_t s1 = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ w[i - 2] >> 10;
    w[i] = w[i - 16] + s0 + w[i - 7] + s1;
  }
  return w;
}

std::string base64(const std::vector<unsigned char>& bytes) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t group = 0;
    for (std::size_t k = i; k < i + 3; ++k) group = group << 8 | (k < bytes.size() ? bytes[k] : 0U);
    for (int shift = 18; shift >= 0; shift -= 6) text += letters[group >> shift & 63U];
  }
  const std::size_t missing = (3 - bytes.size() % 3) % 3;
  return text.replace(text.size() - missing, missing, missing, '=');
}

}  // namespace

std::string sha256_in_base64(std::string_view bytes) {
  const auto k = fractions_of_primes(64, [](long double prime) { return std::cbrt(prime); });
  auto h = fractions_of_primes(8, [](long double prime) { return std::sqrt(prime); });
  const std::vector<unsigned char> all = padded(bytes);
  for (std::size_t block = 0; block < all.size(); block += 64) {
    const auto w = schedule(all.data() + block);
    std::vector<std::uint32_t> v = h;  // a to h
    for (std::size_t i = 0; i < 64; ++i) {
      const std::uint32_t s1 = std::rotr(v[4], 6) ^ std::rotr(v[4], 11) ^ std::rotr(v[4], 25);
      const std::uint32_t t1 = v[7] + s1 + ((v[4] & v[5]) ^ (~v[4] & v[6])) + k[i] + w[i];
      const std::uint32_t s0 = std::rotr(v[0], 2) ^ std::rotr(v[0], 13) ^ std::rotr(v[0], 22);
      const std::uint32_t t2 = s0 + ((v[0] & v[1]) ^ (v[0] & v[2]) ^ (v[1] & v[2]));
      v = {t1 + t2, v[0], v[1], v[2], v[3] + t1, v[4], v[5], v[6]};
    }
    for (std::size_t i = 0; i < 8; ++i) h[i] += v[i];
  }
  std::vector<unsigned char> digest;
  for (const std::uint32_t word : h) {
    for (int shift = 24; shift >= 0; shift -= 8) digest.push_back(static_cast<unsigned char>(word >> shift & 0xFF));
  }
  return base64(digest);
}

}  // namespace pedigreewatch::test
