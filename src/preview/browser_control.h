// SPDX-License-Identifier: GPL-3.0-or-later
// The web-browser control `wb1` as the preview and the help pages use it. Paths are bytes as the file system
// has them, addresses are as the browser writes them.
#pragma once

#include "preview/request_rules.h"

#include <string>

namespace kevra {

enum class Frame { Main, Sub };

/// Where a page wants to go.
struct Navigation {
    std::string address;
    std::string path; ///< the file meant; empty when the address is not a local file
    Frame frame = Frame::Main;
};

class BrowserControl {
public:
    virtual ~BrowserControl() = default;
    /// Loads a file: no history entry, nothing read from a cache, nothing written to one. False when there is
    /// no browser on this machine.
    [[nodiscard]] virtual bool navigate(const std::string &path, const PageScope &scope) = 0;
    virtual void follow(const std::string &address) = 0; ///< goes where a link of the page shown leads
    virtual void resizeTo(int width, int height) = 0; ///< asks the page's script window; in pixels
    virtual void unload() = 0; ///< the page and every script of it end
};

/// The windows around a page.
class PreviewWindows {
public:
    virtual ~PreviewWindows() = default;
    virtual void hideFind() = 0; ///< the find and replace dialog, when it is visible, to the bottom
    /// The image viewer to the bottom and the panel `fr1` away; false when it was not visible.
    virtual bool hideImageViewer() = 0;
    virtual void hideMain() = 0; ///< when it is visible
    virtual void showMain() = 0;
    virtual void showBrowserWindow() = 0; ///< does not wait
    virtual void hideBrowserWindow() = 0;
    virtual void setLinkTarget(const std::string &text) = 0; ///< `turl`
};

} // namespace kevra
