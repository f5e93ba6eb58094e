// SPDX-License-Identifier: GPL-3.0-or-later
// Shorthands for the member tables. Private to host_objects.cpp and its tables.
#pragma once

#include "script/host_objects.h"

namespace kevra::script::host_members {

using enum TypeId;

inline constexpr auto method = MemberKind::Method;
inline constexpr auto property = MemberKind::Property;
inline constexpr auto readOnly = MemberKind::ReadOnly;
inline constexpr auto writeOnly = MemberKind::WriteOnly;

} // namespace kevra::script::host_members
