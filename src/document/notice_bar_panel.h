// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtWidgets/QToolBar>

#include <functional>
#include <initializer_list>
#include <string>

class QLabel;
class QMainWindow;

namespace kevra {

/// A bar above the document with a message and buttons. It does not block: the text can be edited meanwhile.
class NoticeBar : public QToolBar {
    Q_OBJECT

public:
    struct Button {
        const char *name; ///< object name
        const char *caption;
        const char *toolTip;
        std::function<void()> chosen;
    };

    /// Hidden at first.
    NoticeBar(
        const char *name, const char *title, QMainWindow &window, std::initializer_list<Button> buttons);

    /// `description` is file system bytes, since it may contain paths. Screen readers announce it.
    void showText(const std::string &description);
    void setButtonVisible(const char *name, bool visible);

private:
    QLabel *m_description;
    QHash<QString, QAction *> m_buttons;
};

} // namespace kevra
