// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/editor_control_qt.h"

#include "editor/surface_contract.h"

#include <QTest>

namespace kevra {
namespace {

/// A control as a window has it: with a size, so that it can scroll.
class ShownControl : public EditorControl {
public:
    ShownControl()
    {
        resize(400, 300);
        show();
    }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Scintilla, SurfaceContract, ShownControl);

} // namespace
} // namespace kevra
