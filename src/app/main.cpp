// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/svg_icon_qt.h"
#include "widgets/combo_box_names_qt.h"

#include <QtWidgets/QApplication>

#include <filesystem>
#include <span>

namespace {

/// The arguments joined by one blank and taken whole, as a path that does not depend on the current folder.
std::string commandLine(std::span<char *> arguments)
{
    std::string text;
    for (const char *argument : arguments.subspan(1))
        text += (text.empty() ? "" : " ") + std::string(argument);
    std::error_code unknownFolder;
    if (text.empty() || text.front() == '/')
        return text;
    return std::filesystem::current_path(unknownFolder).string() + '/' + text;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setApplicationName("kevra");
    QApplication::setApplicationDisplayName("");
    QApplication::setDesktopFileName("org.kevra.editor");
    QApplication application(argc, argv);
    QApplication::setWindowIcon(kevra::svgIcon("kevra"));
    // The main window is hidden while a page is looked at; only the quit path ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    kevra::installComboBoxNames();
    kevra::Application kevra(kevra::programFolders());
    kevra.start(commandLine({argv, static_cast<std::size_t>(argc)}));
    return kevra.hasEnded() ? 0 : QApplication::exec();
}
