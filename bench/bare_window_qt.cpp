// SPDX-License-Identifier: GPL-3.0-or-later
// The least a window with the same control costs, and the least a file in it does: what start_up.py and
// open_window.py measure the program against.
//   bare_window [FILE]
#include <Qsci/qsciscintillabase.h>

#include <QApplication>
#include <QFile>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto *control = new QsciScintillaBase(&window);
    window.setCentralWidget(control);
    QFile file(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    if (argc > 1 && file.open(QFile::ReadOnly)) {
        // Nothing but the insertion: no undo, no notification, and room for all of it at once.
        control->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
        control->SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, 0UL);
        const auto bytes = file.readAll();
        control->SendScintilla(QsciScintillaBase::SCI_ALLOCATE, static_cast<unsigned long>(bytes.size()));
        control->SendScintilla(
            QsciScintillaBase::SCI_APPENDTEXT, static_cast<unsigned long>(bytes.size()), bytes.constData());
    }
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
