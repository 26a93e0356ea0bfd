// The public codes of projection directions. Codes 1 to 6 are the standard
// directions, the first six PROJECTION rows of every catalog, named exactly
// as below; code 7 is any other, user-named direction. Names compare exactly,
// case included. Pure functions, thread-safe.
#pragma once

#include <cstdint>
#include <string>

inline constexpr std::int32_t kUserProjection = 7;
// The value that leaves a type or a view type out of a search.
inline constexpr std::int32_t kOmitted = -1;

// 0 for an empty name, 1 to 6 for the standard names, 7 for any other.
std::int32_t GetProjectionTypeByName(const std::wstring& name);
// The standard name of codes 1 to 6; empty for anything else.
const std::wstring& StandardProjectionName(std::int32_t type);
// The code a loaded or resolved row shows: 1 to 6, else 7.
std::int32_t PublicProjectionType(std::int32_t code);
// View types are 0, 1 and 2; anything else, negative numbers included, is not.
inline bool IsViewType(std::int32_t viewType) { return static_cast<std::uint32_t>(viewType) <= 2; }
