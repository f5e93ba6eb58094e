// SPDX-License-Identifier: GPL-3.0-or-later
// The document's file as other programs and earlier versions change it: the watch, the bar, the comparison
// and the versions window, brought together.
#pragma once

#include "document/disk_changes.h"
#include "document/versions_commands.h"
#include "storage/file_watch_posix.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

namespace kevra {

class Application;
class CompareWindow;
class NoticeBar;
class VersionsWindow;

class DiskSide : public QObject, private DiskChangeView {
    Q_OBJECT

public:
    DiskSide(
        Application &app, const FileCommandPorts &ports, OpenCommands &opening, DocumentColouring &colouring);

    void check();
    /// Cheap; another document may be in the window, or it has been saved.
    void documentMayHaveChanged();

signals:
    void fileTouched();

private:
    void showDiskBar(DiskBar bar, const std::string &text) override;
    void showComparison(const TextsToCompare &texts) override;
    void bindCommands();
    void showVersions();

    Application &m_app;
    DiskChanges m_changes;
    VersionsCommands m_versions;
    NoticeBar &m_bar; ///< the main window's, as both windows
    QPointer<CompareWindow> m_compareWindow;
    QPointer<VersionsWindow> m_versionsWindow;
    FileWatch m_watch; ///< last: it calls from its own thread
};

} // namespace kevra
