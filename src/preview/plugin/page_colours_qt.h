// SPDX-License-Identifier: GPL-3.0-or-later
// The preference for light or dark colours that a page sees (prefers-color-scheme).
#pragma once

#include <QtWebEngineCore/QWebEnginePage>
#include <QtWebEngineCore/QWebEngineProfile>

namespace kevra {

/// The engine takes the answer from its command line, once for the program. For one page only the engine's
/// own inspector can change it; no more of that is started than its line to the page.
class PageColours : public QObject {
public:
    /// Both outlive it; `profile` is for its inspector alone.
    PageColours(QWebEnginePage &page, QWebEngineProfile &profile);
    ~PageColours() override;

    void setDark(bool dark);

private:
    void send();
    void check();

    QWebEnginePage &m_page;
    QWebEnginePage m_inspector;
    bool m_ready = false;
    bool m_dark = false;
    int m_attempts = 0;
};

} // namespace kevra
