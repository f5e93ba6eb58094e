// SPDX-License-Identifier: GPL-3.0-or-later
// The least a window with the same control costs: what start_up.py measures the program against.
#include <Qsci/qsciscintillabase.h>

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QsciScintillaBase(&window));
    window.resize(900, 600);
    window.show();
    return QApplication::exec();
}
