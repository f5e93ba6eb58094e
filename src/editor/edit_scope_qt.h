// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/editor_control_qt.h"

namespace kevra {

/// The scope of one command on the control: sets its kind, and reports its changes at the end. A command
/// within another is part of it.
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

/// Changes during its lifetime are one undo step.
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
