// SPDX-License-Identifier: GPL-3.0-or-later
// The page beside the text over the plugin with the web engine, which is loaded when the first page is asked
// for. The document's text is served as its own file would be; nothing is written.
#pragma once

#include "beside/text_requests_qt.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <memory>

namespace kevra {

class BesideControlQt : public QObject, private NavigationGate, private PageEvents, private DisplayEvents {
    Q_OBJECT

public:
    /// The page's widget is put into `parent`.
    explicit BesideControlQt(QWidget &parent);
    ~BesideControlQt() override;

    /// In a new page with a process of its own. `path` is the document's, which need not exist. False when
    /// there is no engine.
    [[nodiscard]] bool load(
        const std::string &path, const PageScope &scope, std::shared_ptr<const PageText> page);
    void reload(std::shared_ptr<const PageText> page); ///< in the page there is
    void unload();
    void ask(const std::string &call);
    void setZoomFactor(double factor);
    void setDark(bool dark); ///< also of the pages to come
    [[nodiscard]] QWidget *widget() const; ///< null before the first page
    [[nodiscard]] bool isSandboxed() const;

signals:
    void answered(const QString &answer);
    void answerOverdue();
    void messageReceived(const QString &message); ///< by the script that follows the text
    void alerted(const QString &message); ///< by the page
    void linkFollowed(const QString &address); ///< it is not gone to
    void partRefused(); ///< of the page, by the request rules
    void zoomAsked(int steps);
    void ended();

private:
    [[nodiscard]] bool mayNavigate(const QUrl &url, bool mainFrame) override;

    void linkClicked(const QUrl &url) override;
    void loadProgress(int) override { }
    void loadFinished() override { }
    void processDied() override { emit ended(); }
    void pageMessage(const QString &message) override;
    void pageAlert(const QString &message) override { emit alerted(message); }

    void copyRequested() override;
    void zoomRequested(int steps) override { emit zoomAsked(steps); }
    void found(int, int) override { }

    void expectPage(std::shared_ptr<const PageText> page);

    QWidget &m_parent;
    TextRequests m_requests;
    bool m_expected = false; ///< the next navigation is the program's
    bool m_dark = false;
    std::uint64_t m_load = 0; ///< answers of the page before count no more
    QTimer m_patience;
    std::unique_ptr<BrowserEngine> m_engine;
};

} // namespace kevra
