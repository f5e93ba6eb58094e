// SPDX-License-Identifier: GPL-3.0-or-later
// Connects what concerns changes of the document's file by others, and its versions: the watch, the bar, the
// comparison and the versions window.
#pragma once

#include "document/disk_changes.h"
#include "document/versions_commands.h"
#include "settings/option_switch.h"
#include "storage/file_watch_posix.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

namespace kevra {

class Application;
class CompareWindow;
class NoticeBar;
class VersionsWindow;

class DiskChangesQt : public QObject, private DiskChangeView {
    Q_OBJECT

public:
    DiskChangesQt(
        Application &app, const FileCommandPorts &ports, OpenCommands &opening, DocumentColouring &colouring);

    void check();
    /// Call when the document may have been replaced or saved. Cheap.
    void documentMayHaveChanged();

signals:
    void fileTouched();

private:
    void showDiskBar(DiskBar bar, const std::string &text) override;
    void showComparison(const TextsToCompare &texts) override;
    void bindCommands();
    void showVersions();

    Application &m_app;
    const DocumentFile &m_file;
    DiskChanges m_changes;
    OptionSwitch m_reloading;
    VersionsCommands m_versions;
    NoticeBar &m_bar; ///< owned by the main window, like both windows
    QPointer<CompareWindow> m_compareWindow;
    QPointer<VersionsWindow> m_versionsWindow;
    FileWatch m_watch; ///< last: it calls from its own thread
};

} // namespace kevra
