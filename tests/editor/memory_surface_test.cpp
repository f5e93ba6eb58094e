// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/memory_surface.h"

#include "editor/surface_contract.h"

namespace kevra {

INSTANTIATE_TYPED_TEST_SUITE_P(InMemory, SurfaceContract, MemorySurface);

} // namespace kevra
