#pragma once

// Result codes of the host's interface operations, with the values COM-style hosts use.
using VRKResult = long;

inline constexpr VRKResult S_OK = 0;
inline constexpr VRKResult E_FAIL = static_cast<VRKResult>(0x80004005L);
