// SPDX-License-Identifier: GPL-3.0-or-later
// A text in memory with its page beside it over the real web engine, as the main window wires them.
#pragma once

#include "beside/beside_commands.h"
#include "beside/beside_control_qt.h"
#include "beside/beside_panel.h"

#include <QtWidgets/QtWidgets>

namespace kevra {

class BesideStage : public QObject, protected BesidePage, protected BesideDocument {
public:
    BesideStage()
    {
        m_pause.setSingleShot(true);
        connect(&m_pause, &QTimer::timeout, this, [this] { m_commands.pauseOver(); });
        connect(&m_control, &BesideControlQt::answered, this, [this](const QString &answer) {
            if (!takeAnswer(answer))
                m_commands.answered(answer.toStdString());
        });
        connect(&m_control, &BesideControlQt::messageReceived, this,
            [this](const QString &message) { m_commands.pageMessage(message.toStdString()); });
        connect(&m_control, &BesideControlQt::ended, this, [this] { m_commands.pageEnded(); });
        m_panel.resize(900, 700);
        m_panel.show();
    }

protected:
    [[nodiscard]] QWidget *view() const { return m_control.widget(); }
    /// What takes the mouse.
    [[nodiscard]] QWidget *page() const { return view()->focusProxy() ? view()->focusProxy() : view(); }

    /// False for what the editor has asked.
    [[nodiscard]] virtual bool takeAnswer(const QString &) { return false; }

    bool load(const std::string &path, std::shared_ptr<const PageText> page) override
    {
        m_loaded = m_control.load(path, {m_folder, m_folder}, std::move(page));
        m_panel.setPageWidget(view());
        m_panel.showPage(true);
        return m_loaded;
    }
    void reload(std::shared_ptr<const PageText> page) override { m_control.reload(std::move(page)); }
    void unload() override
    {
        m_control.unload();
        m_loaded = false;
    }
    void prepare(PageTextRequest request) override
    {
        QTimer::singleShot(0, this, [this, page = std::make_shared<PageText>(makePageText(m_text, request))] {
            m_commands.prepared(page);
        });
    }
    void startTimer(std::chrono::milliseconds time) override { m_pause.start(time); }
    void ask(const std::string &call) override { m_control.ask(call); }
    void showNote(BesideNote, std::string_view text) override
    {
        m_note = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    [[nodiscard]] bool startBrowser(const std::string &) override { return false; }
    void selectText(TextRange) override { }
    [[nodiscard]] Offset caret() const override { return 0; }

    std::string m_folder;
    std::string m_text;
    QString m_note;
    bool m_loaded = false;
    QTimer m_pause;
    BesideCommands m_commands{*this, *this};
    BesidePanel m_panel{nullptr};
    BesideControlQt m_control{m_panel.frame()};
};

} // namespace kevra
