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

/// A double click on a finding in the information box goes to the line it names.
class FindingLink : public QObject {
public:
    FindingLink(QLineEdit &box, EditorControl &document)
        : m_box(box)
        , m_document(document)
    {
        box.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto line = event->type() == QEvent::MouseButtonDblClick
            ? lineNamedBy(m_box.text().toStdString())
            : std::nullopt;
        if (!line || *line > m_document.lineCount())
            return QObject::eventFilter(watched, event);
        const auto start = m_document.lineRange(*line - 1).start;
        goTo(m_document, {start, start});
        return true;
    }

private:
    QLineEdit &m_box;
    EditorControl &m_document;
};

/// The hourglass wherever the pointer is: the menu and the toolbar are outside the document.
class ScreenHourglass {
public:
    ScreenHourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~ScreenHourglass() { QApplication::restoreOverrideCursor(); }
    ScreenHourglass(const ScreenHourglass &) = delete;
    ScreenHourglass &operator=(const ScreenHourglass &) = delete;
};

} // namespace

void wireChecker(Application &app)
{
    auto &checker
        = app.keep<ScriptDebugger>(app.mainWindow().document(), app.document.state, app.mainWindow());
    app.checkFinishedLine = [&checker](TextRange line) { checker.checkFinishedLine(line); };
    app.keep<FindingLink>(*app.mainWindow().findChild<QLineEdit *>("tinfo"), app.mainWindow().document());
    app.commands.bind("mrundebug", [&app, &checker] {
        const ScreenHourglass hourglass;
        checker.debugDocument();
    });
    app.commands.bind("mdodebug", [&app] { app.toolSets().setLineDebugging(true); });
    app.commands.bind("mnodebug", [&app] { app.toolSets().setLineDebugging(false); });
}

} // namespace kevra
