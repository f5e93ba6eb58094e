// SPDX-License-Identifier: GPL-3.0-or-later
// Page preview, help and reference pages: what the one browser window shows, which links it follows, and
// which message says why not.
#pragma once

#include "desktop/main_view.h"
#include "desktop/messages.h"
#include "document/application_state.h"
#include "document/document_parts.h"
#include "preview/browser_control.h"
#include "preview/preview_file.h"

#include <functional>
#include <string>

namespace kevra {

struct PreviewPorts {
    DocumentParts document;
    ApplicationState &application;
    FileStore &files;
    BackupStore &backups;
    PreviewRecords &records;
    Messages &messages;
    MainView &main;
    PreviewWindows &windows;
    BrowserControl &browser;
    std::function<std::string(const std::string &)> assetPath; ///< where a page of the program lies
    std::string home; ///< the user's folder, which is never a site
};

class PreviewCommands {
public:
    explicit PreviewCommands(PreviewPorts ports);

    void ViewPage();
    void WritePreviewPage();
    void ShowPreviewFile();
    void ShowBrowser();
    void BackToText();
    void ShowHelp();
    void ShowScriptReference();
    /// False when the page was not loaded; the user has been told why.
    bool LoadHelpPage();
    bool LoadScriptReferencePage();

    void helpFromBrowser();
    void referenceFromBrowser();
    void refresh();
    void browserFirstShown();
    /// The page of this run is deleted; also at the end of the program.
    void removePreviewPage();

    /// Whether the browser may go there.
    [[nodiscard]] bool beforeNavigate(const Navigation &target);
    void navigationComplete();
    /// A link was clicked, whether or not the browser would navigate for it.
    void linkClicked(const std::string &address);
    void pageFailed(); ///< the browser's process has died

private:
    enum class Loaded { Yes, Missing, Failed };
    struct ProgramPage;
    static const ProgramPage helpPage;
    static const ProgramPage referencePage;

    /// Whether links of the page shown are followed. Where they are not, shows the address in `turl`.
    [[nodiscard]] bool followsLinks(const std::string &address);
    [[nodiscard]] bool askFor(const std::string &path);
    [[nodiscard]] Loaded load(const ProgramPage &page);
    void showFromMain(const ProgramPage &page, bool &mode);
    void showProgramPage(const ProgramPage &page);
    [[nodiscard]] std::string previewPath();
    void tidyToolWindows();
    void showFailed();

    PreviewPorts m_ports;
    PreviewFile m_page;
    std::string m_asked; ///< the file the program has asked the browser for
    bool m_programNavigation = false;
};

} // namespace kevra
