// SPDX-License-Identifier: GPL-3.0-or-later
// The layout of the main window's inner area. All lengths in twips, none negative.
#pragma once

#include "desktop/geometry.h"

#include <array>

namespace kevra {

/// The preferred sizes of the controls.
struct TwipSize {
    int width = 0;
    int height = 0;
};

struct LayoutRequest {
    TwipRect inner;
    std::array<TwipSize, 4> panels; ///< Frame1, Frame2, frscript1, frscript2
    TwipSize fonts; ///< frtbar
    TwipSize information; ///< tinfo; its width is not used
    int status = 0; ///< minimum height of the status row
    TwipSize image; ///< fr1
    TwipSize colour; ///< frcol
    int findings = 0; ///< the height of the list under the text; 0 when it is closed
};

struct MainLayout {
    TwipRect editor;
    TwipRect lineNumbers;
    std::array<TwipRect, 4> panels;
    TwipRect fonts;
    TwipRect information;
    TwipRect status; ///< the line under the information box
    TwipRect findings; ///< under the text, over the panels
    TwipRect image;
    TwipRect colour;
};

[[nodiscard]] MainLayout layout(const LayoutRequest &request);

} // namespace kevra
