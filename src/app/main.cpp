// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application_qt.h"
#include "app/svg_icon_qt.h"
#include "widgets/combo_box_names_qt.h"

#include <QtWidgets/QApplication>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

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

constexpr auto usage = R"(Usage: kevra [FILE]

Opens FILE, the whole of what is written, in the editor for web pages and Windows scripts.

  --help     Print this and exit
  --version  Print the version and exit

Either opens a file of that very name where there is one.
kevra-cli checks and colors files without a window.
)";

/// Nothing where a window is asked for. A file of that name goes before an option.
const char *answerTo(std::string_view option)
{
    std::error_code error;
    if (std::filesystem::exists(option, error))
        return nullptr;
    return option == "--help" ? usage : option == "--version" ? "kevra " KEVRA_VERSION "\n" : nullptr;
}

} // namespace

int main(int argc, char **argv)
{
    if (const char *answer = argc == 2 ? answerTo(argv[1]) : nullptr)
        return std::fputs(answer, stdout) < 0;
        // A reader of standard error that has gone is an error to pass over, not a reason to die.
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
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
