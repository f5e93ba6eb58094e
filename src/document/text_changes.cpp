// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/text_changes.h"

namespace kevra {
namespace {
constexpr Offset largeDeletion = 200; ///< bytes; from here on they are recorded before they go
}

bool TextChanges::changed(Offset position, Offset removed, Offset added)
{
    if (m_document.state.busyLoadingOrSaving) {
        m_encoding.documentReplaced();
        return false;
    }
    m_encoding.textChanged(position, removed, added);
    m_document.journal.textChanged();
    return true;
}

void TextChanges::aboutToRemove(Offset length)
{
    if (length >= largeDeletion && !m_document.state.busyLoadingOrSaving)
        m_document.journal.writeDown();
}

} // namespace kevra
