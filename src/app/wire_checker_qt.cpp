// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/wiring_qt.h"
#include "checker/checker.h"
#include "checker/script_debugger.h"
#include "editor/reveal_qt.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

namespace kevra {

namespace {

/// A double click on a finding in the information box goes to its line.
class FindingLink : public QObject {
public:
    FindingLink(QLineEdit &box, EditorControl &control)
        : m_box(box)
        , m_control(control)
    {
        box.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto line = event->type() == QEvent::MouseButtonDblClick
            ? lineNamedBy(m_box.text().toStdString())
            : std::nullopt;
        if (!line || *line > m_control.lineCount())
            return QObject::eventFilter(watched, event);
        const auto start = m_control.lineRange(*line - 1).start;
        goTo(m_control, {start, start});
        return true;
    }

private:
    QLineEdit &m_box;
    EditorControl &m_control;
};

/// Shows the hourglass everywhere, since the pointer may be over the menu or the toolbar.
class ScreenHourglass {
public:
    ScreenHourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~ScreenHourglass() { QApplication::restoreOverrideCursor(); }
    ScreenHourglass(const ScreenHourglass &) = delete;
    ScreenHourglass &operator=(const ScreenHourglass &) = delete;
};

} // namespace

void wireChecker(Application &app, WindowDocument &shown)
{
    auto &checker = app.keep<ScriptDebugger>(shown.document, app.mainWindow());
    app.checkFinishedLine = [&checker](TextRange line) { checker.checkFinishedLine(line); };
    app.keep<FindingLink>(*app.mainWindow().findChild<QLineEdit *>("tinfo"), shown.control);
    app.commands.bind("mrundebug", [&app, &checker] {
        const ScreenHourglass hourglass;
        checker.debugDocument();
    });
    app.commands.bind("mdodebug", [&app] { app.toolSets().setLineDebugging(true); });
    app.commands.bind("mnodebug", [&app] { app.toolSets().setLineDebugging(false); });
}

} // namespace kevra
