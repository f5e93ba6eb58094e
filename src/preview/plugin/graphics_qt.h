// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace kevra {

/// Has pages painted without OpenGL where the processor would have to emulate it: Qt puts a window with such
/// a view together by OpenGL at every change, and a key typed beside a page then costs ten times as much.
/// Before the first view.
void avoidEmulatedGraphics();

} // namespace kevra
