// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/application_state.h"
#include "editor/editor_control_qt.h"
#include "pad/pad_commands.h"

#include <QtWidgets/QMainWindow>

class QMenu;

namespace kevra {

/// The window `fpad`. Closing it hides and empties it; its place is kept in the application's state.
class PadWindow : public QMainWindow {
    Q_OBJECT

public:
    PadWindow(const EditorSurface &surface, Clipboard &clipboard, ApplicationState &application,
        QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAction *addCommand(
        QWidget &menu, const char *name, const QString &caption, void (PadCommands::*command)());
    void createMenus();
    [[nodiscard]] bool isNormal() const;
    void takeFontAndPlace();
    void keepPlace();

    const EditorSurface &m_surface;
    ApplicationState &m_application;
    EditorControl *m_control; ///< `rt1`
    QMenu *m_popUp;
    PadCommands m_commands;
};

} // namespace kevra
