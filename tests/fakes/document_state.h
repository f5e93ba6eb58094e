// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/document_state.h"

namespace kevra {

struct OwnOptions {
    EditorOptions ownOptions;
};

/// The state of a document that is the program's only one.
struct FakeDocumentState : OwnOptions, DocumentState {
    FakeDocumentState()
        : DocumentState(ownOptions)
    {
    }
};

} // namespace kevra
