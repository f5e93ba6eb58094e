// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/disk_changes_qt.h"

#include "app/application_qt.h"
#include "desktop/new_window_qt.h"
#include "document/compare_window.h"
#include "document/notice_bar_panel.h"
#include "document/versions_window.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <chrono>

namespace kevra {

namespace {

constexpr std::chrono::milliseconds retryDelay{500};

struct BarButton {
    const char *name;
    std::array<DiskBar, 2> bars; ///< that have it
};

constexpr std::array barButtons{
    BarButton{"bdiskreload", {DiskBar::Changed, DiskBar::Changed}},
    BarButton{"bdiskkeep", {DiskBar::Changed, DiskBar::Gone}},
    BarButton{"bdiskcompare", {DiskBar::Changed, DiskBar::Replaced}},
    BarButton{"bdiskputback", {DiskBar::Replaced, DiskBar::Replaced}},
    BarButton{"bdiskclose", {DiskBar::Replaced, DiskBar::Replaced}},
};

} // namespace

DiskChangesQt::DiskChangesQt(
    Application &app, const FileCommandPorts &ports, OpenCommands &opening, DocumentColouring &colouring)
    : m_app(app)
    , m_file(ports.document.file)
    , m_changes(ports, opening, *this)
    , m_reloading(app.settingsStore, app.toolSets(), Option::AutoReload,
          [this](bool on) { m_changes.setReloadsByItself(on); })
    , m_versions(ports, app.backups, colouring, openInNewWindow)
    , m_bar(*new NoticeBar("diskbar", "The file on the disk", app.mainWindow(),
          {{"bdiskreload", "&Reload", "Show what is on the disk; what was typed here goes to the versions",
               [this] { m_changes.reload(); }},
              {"bdiskkeep", "&Keep Mine", "Leave the text as it is", [this] { m_changes.keepMine(); }},
              {"bdiskcompare", "&Compare", "Show both texts beside each other",
                  [this] { m_changes.compare(); }},
              {"bdiskputback", "&Put Back", "Write the other program's version back to the file",
                  [this] { m_changes.putBack(); }},
              {"bdiskclose", "C&lose", "Take this note away", [this] { m_changes.close(); }}}))
    , m_watch([this] { emit fileTouched(); })
{
    bindCommands();
}

void DiskChangesQt::bindCommands()
{
    m_app.commands.bind("mversions", [this] { showVersions(); });
    m_reloading.load();
    m_app.commands.bind("mreload", [this] {
        m_reloading.toggle();
        m_changes.check();
    });
}

void DiskChangesQt::check()
{
    // An open question about the current text comes first.
    if (QApplication::activeModalWidget())
        return QTimer::singleShot(retryDelay, this, &DiskChangesQt::check);
    m_changes.check();
}

void DiskChangesQt::documentMayHaveChanged()
{
    m_watch.watch(m_file.path());
    if (m_changes.isCheckDue())
        QTimer::singleShot(0, this, &DiskChangesQt::check);
}

void DiskChangesQt::showDiskBar(DiskBar bar, const std::string &text)
{
    if (bar == DiskBar::None)
        return m_bar.hide();
    for (const auto &button : barButtons)
        m_bar.setButtonVisible(button.name, std::ranges::find(button.bars, bar) != button.bars.end());
    m_bar.showText(text);
}

void DiskChangesQt::showComparison(const TextsToCompare &texts)
{
    if (!m_compareWindow)
        m_compareWindow = new CompareWindow(&m_app.mainWindow());
    m_compareWindow->showTexts(texts);
}

void DiskChangesQt::showVersions()
{
    if (!m_versionsWindow)
        m_versionsWindow = new VersionsWindow(m_versions, &m_app.mainWindow());
    m_versionsWindow->showVersions();
}

} // namespace kevra
