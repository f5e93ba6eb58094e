// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/editor_control_qt.h"

namespace kevra {

/// One command on the control, from whoever: says where its changes come from, and reports them at its end.
/// A command within another is a part of it.
class EditScope {
public:
    EditScope(EditorControl &control, EditKind kind);
    ~EditScope();
    EditScope(const EditScope &) = delete;
    EditScope &operator=(const EditScope &) = delete;

private:
    EditorControl &m_control;
    bool m_outermost;
    TextRange m_selection;
};

/// Undo takes back in one step what is done while this lives.
class UndoStep {
public:
    explicit UndoStep(EditorControl &control);
    ~UndoStep();
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

private:
    EditorControl &m_control;
};

} // namespace kevra
