#include "content/ProjectionTypes.h"

#include <array>

namespace {

const std::array<std::wstring, 6>& StandardNames() {
  static const std::array<std::wstring, 6> names = {L"сверху", L"спереди", L"сзади", L"слева", L"справа", L"снизу"};
  return names;
}

}  // namespace

std::int32_t GetProjectionTypeByName(const std::wstring& name) {
  if (name.empty()) return 0;
  const auto& names = StandardNames();
  for (std::size_t i = 0; i < names.size(); ++i)
    if (names[i] == name) return static_cast<std::int32_t>(i) + 1;
  return kUserProjection;
}

const std::wstring& StandardProjectionName(std::int32_t type) {
  static const std::wstring none;
  if (type < 1 || type > 6) return none;
  return StandardNames()[static_cast<std::size_t>(type - 1)];
}

std::int32_t PublicProjectionType(std::int32_t code) { return code >= 1 && code <= 6 ? code : kUserProjection; }
