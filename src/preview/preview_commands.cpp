// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/preview_commands.h"

#include "document/file_types.h"
#include "text/flag_guard.h"
#include "text/paths.h"

#include <tuple>
#include <utility>

namespace kevra {

/// A page that comes with the program. The two messages differ on purpose in wording and icon.
struct PreviewCommands::ProgramPage {
    const char *file;
    const char *missingInMain;
    const char *missingInBrowser;
};

namespace {

constexpr auto missingTitle = "Help File Missing";

} // namespace

const PreviewCommands::ProgramPage PreviewCommands::helpPage{"kevrahelp.html",
    "The help file is missing. You should have kevrahelp.html in the KEVRA folder.",
    "The Help file is missing. You should have kevrahelp.html in the KEVRA folder."};
const PreviewCommands::ProgramPage PreviewCommands::referencePage{"VBSInfo.html",
    "The VBScript Info. file is missing. You should have VBSInfo.html in the KEVRA folder.",
    "The VBScript Info. file is missing. You should have VBSInfo.html in the KEVRA folder."};

PreviewCommands::PreviewCommands(PreviewPorts ports)
    : m_ports(std::move(ports))
    , m_page(m_ports.files, m_ports.backups, m_ports.records)
{
}

void PreviewCommands::ViewPage()
{
    if (m_ports.document.surface.TextLength() == 0)
        return m_ports.messages.stop("There isn't yet a page to view!");
    tidyToolWindows();
    WritePreviewPage();
}

void PreviewCommands::tidyToolWindows()
{
    m_ports.windows.hideFind();
    if (m_ports.windows.hideImageViewer())
        m_ports.main.setInformation("");
}

std::string PreviewCommands::previewPath()
{
    if (m_ports.document.state.currentPath.empty())
        return m_ports.application.tempFolder + '/' + previewPageName;
    std::string folder(parentFolder(m_ports.document.state.currentPath));
    if (folder == "/")
        folder.clear();
    return std::string(withoutTrailingSeparator(folder)) + '/' + previewPageName;
}

void PreviewCommands::WritePreviewPage()
{
    if (m_ports.document.surface.TextLength() == 0) {
        m_ports.messages.show({"There isn't any page yet to view!", Icon::Information, Buttons::Ok, "Error"});
        return;
    }
    const auto &current = m_ports.document.state.currentPath;
    if (current.empty() && !m_ports.files.folderExists(m_ports.application.tempFolder))
        return m_ports.messages.stop(
            "Error loading page. The setting for the Webpage Temp Folder may be invalid.");
    const auto path = previewPath();
    const FlagGuard busy(m_ports.document.state.busyLoadingOrSaving);
    const auto page = m_ports.document.file.encoded(
        m_ports.document.surface.Text(), current, m_ports.document.state.scriptTools);
    if (!m_page.write(path, page.bytes))
        return showFailed();
    m_ports.application.previewTempPath = path;
    m_programNavigation = true;
    ShowBrowser();
}

void PreviewCommands::showFailed()
{
    removePreviewPage();
    m_programNavigation = false;
    m_ports.application.helpShowing = false;
    m_ports.application.vbsInfoShowing = false;
    m_ports.messages.stop("Error loading page. If this is new work the Webpage Temp Folder may be invalid.");
}

bool PreviewCommands::askFor(const std::string &path)
{
    m_programNavigation = true;
    m_asked = path;
    return m_ports.browser.navigate(
        path, scopeOf(std::string(parentFolder(path)), m_ports.files, m_ports.home));
}

void PreviewCommands::ShowBrowser()
{
    m_programNavigation = true;
    if (m_ports.application.helpShowing)
        return showProgramPage(helpPage);
    if (m_ports.application.vbsInfoShowing)
        return showProgramPage(referencePage);
    m_ports.application.helpShowing = false;
    m_ports.application.vbsInfoShowing = false;
    ShowPreviewFile();
}

void PreviewCommands::showProgramPage(const ProgramPage &page)
{
    if (load(page) == Loaded::Failed)
        return showFailed();
    m_ports.windows.hideMain();
    m_ports.windows.showBrowserWindow();
}

void PreviewCommands::ShowPreviewFile()
{
    const auto &path = m_ports.application.previewTempPath;
    if (!m_ports.files.fileExists(path)) {
        m_ports.messages.show(
            {"There doesn't seem to be a page to view!", Icon::Information, Buttons::Ok, "Error"});
        return;
    }
    if (!askFor(path))
        return showFailed();
    m_ports.windows.hideMain();
    m_ports.windows.showBrowserWindow();
}

void PreviewCommands::BackToText()
{
    m_programNavigation = true;
    m_asked.clear();
    m_ports.windows.hideBrowserWindow();
    m_ports.windows.showMain();
    m_ports.browser.unload();
    removePreviewPage();
    m_ports.application.helpShowing = false;
    m_ports.application.vbsInfoShowing = false;
}

void PreviewCommands::removePreviewPage()
{
    m_page.remove();
    // From now on a file of that name is somebody else's.
    m_ports.application.previewTempPath.clear();
}

PreviewCommands::Loaded PreviewCommands::load(const ProgramPage &page)
{
    const auto path = m_ports.assetPath(page.file);
    if (!m_ports.files.fileExists(path)) {
        m_ports.messages.show({page.missingInBrowser, Icon::None, Buttons::Ok, missingTitle});
        return Loaded::Missing;
    }
    return askFor(path) ? Loaded::Yes : Loaded::Failed;
}

bool PreviewCommands::LoadHelpPage()
{
    return load(helpPage) == Loaded::Yes;
}

bool PreviewCommands::LoadScriptReferencePage()
{
    return load(referencePage) == Loaded::Yes;
}

void PreviewCommands::showFromMain(const ProgramPage &page, bool &mode)
{
    if (!m_ports.files.fileExists(m_ports.assetPath(page.file))) {
        m_ports.messages.show({page.missingInMain, Icon::Information, Buttons::Ok, missingTitle});
        return;
    }
    mode = true;
    tidyToolWindows();
    ShowBrowser();
}

void PreviewCommands::ShowHelp()
{
    showFromMain(helpPage, m_ports.application.helpShowing);
}

void PreviewCommands::ShowScriptReference()
{
    showFromMain(referencePage, m_ports.application.vbsInfoShowing);
}

void PreviewCommands::helpFromBrowser()
{
    LoadHelpPage();
    m_ports.application.helpShowing = true;
}

void PreviewCommands::referenceFromBrowser()
{
    LoadScriptReferencePage();
    m_ports.application.vbsInfoShowing = true;
}

void PreviewCommands::refresh()
{
    if (m_ports.application.helpShowing)
        LoadHelpPage();
    else if (m_ports.application.vbsInfoShowing)
        LoadScriptReferencePage();
    else
        ShowPreviewFile();
}

void PreviewCommands::browserFirstShown()
{
    // A page that was asked for is the first one; without any there is still something to look at.
    if (!m_asked.empty())
        return;
    for (const auto *name : {"kevrahelp.html", "template.html"}) {
        if (const auto path = m_ports.assetPath(name); m_ports.files.fileExists(path)) {
            std::ignore = askFor(path);
            return;
        }
    }
}

bool PreviewCommands::followsLinks(const std::string &address)
{
    // With the page missing, whatever was shown before is still there and gets nothing of the help's.
    if (m_ports.application.helpShowing && m_asked == m_ports.assetPath(helpPage.file))
        return true;
    if (!m_ports.application.vbsInfoShowing)
        m_ports.windows.setLinkTarget(address);
    return false;
}

bool PreviewCommands::beforeNavigate(const Navigation &target)
{
    // Frames are parts of the page until it is complete; what they may load, the request rules say.
    const bool asked = !m_asked.empty() && (target.frame == Frame::Sub || target.path == m_asked);
    if (m_programNavigation && asked)
        return true;
    return followsLinks(target.address);
}

void PreviewCommands::navigationComplete()
{
    m_programNavigation = false;
    if (m_ports.application.helpShowing || m_ports.application.vbsInfoShowing)
        m_ports.windows.setLinkTarget("");
}

void PreviewCommands::linkClicked(const std::string &address)
{
    if (followsLinks(address))
        m_ports.browser.follow(address);
}

void PreviewCommands::pageFailed()
{
    BackToText();
    m_ports.messages.stop("Error loading page. If this is new work the Webpage Temp Folder may be invalid.");
}

} // namespace kevra
