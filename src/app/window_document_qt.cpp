// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window_document_qt.h"

#include "widgets/named_qt.h"

namespace kevra {

WindowDocument::WindowDocument(Shared shared, RecoveryStorePosix::Folders recordFolders)
    : m_unshown(named<EditorControl>("t1", nullptr, "Document"))
    , control(*m_unshown)
    , recovery(std::move(recordFolders), shared.backups,
          [this] {
              const auto notify = [this] {
                  if (recordOutcomeChanged)
                      recordOutcomeChanged();
              };
              QMetaObject::invokeMethod(this, notify, Qt::QueuedConnection);
          })
    , document(control, shared.editorOptions, shared.application, shared.files, shared.backups, recovery)
{
}

} // namespace kevra
