#include "tools/CatalogGenerator/SyntheticValues.h"

#include <array>
#include <string>

namespace {

constexpr std::array<const wchar_t*, 6> kMaterials = {L"сталь", L"латунь", L"медь", L"ПВХ", L"чугун",
                                                      L"оцинкованная сталь"};

// SplitMix64's finaliser: every input bit reaches every output bit, and the
// constants are fixed, so the values are the same on every platform.
std::uint64_t Mix(std::uint64_t x) {
  x += 0x9e3779b97f4a7c15ULL;
  x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9ULL;
  x = (x ^ (x >> 27)) * 0x94d049bb133111ebULL;
  return x ^ (x >> 31);
}

Value FromHash(std::uint64_t hash, std::int32_t type) {
  switch (type) {
    case 1:
      return static_cast<std::int32_t>(hash % 2001) - 1000;
    case 2:
      return static_cast<double>(hash % 200001) / 100.0;
    case 3:
      return std::wstring(kMaterials[hash % kMaterials.size()]) + L" " + std::to_wstring(hash / 7 % 1000);
    default:
      return Value{};
  }
}

}  // namespace

std::uint64_t SyntheticValues::Hash(std::uint64_t domain, std::uint64_t place, std::uint64_t number) const {
  return Mix(Mix(Mix(seed_ ^ domain) ^ place) ^ number);
}

Value SyntheticValues::SizeValue(std::int64_t size, std::int32_t number, std::int32_t type) const {
  return FromHash(Hash(1, static_cast<std::uint64_t>(size), static_cast<std::uint64_t>(number)), type);
}

// The group goes into the value itself, not only into the hash, so that
// neighbouring groups can never meet on the same value (the library compares
// neighbours only). Numbers take the group modulo 1000 to stay in range.
Value SyntheticValues::CommonValue(std::int64_t folder, std::int32_t group, std::int32_t number,
                                   std::int32_t type) const {
  const std::uint64_t hash = Hash(2, static_cast<std::uint64_t>(folder), static_cast<std::uint64_t>(number));
  switch (type) {
    case 1:
      return static_cast<std::int32_t>(hash % 1000) + 1000 * (group % 1000);
    case 2:
      return static_cast<double>(hash % 100000) / 100.0 + 1000.0 * (group % 1000);
    case 3:
      return std::get<std::wstring>(FromHash(hash, 3)) + L", исп. " + std::to_wstring(group + 1);
    default:
      return Value{};
  }
}
