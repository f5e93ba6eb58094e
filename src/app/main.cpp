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

#ifdef __unix__
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

/// The arguments joined by blanks, as one absolute path.
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

/// Nothing if a window is to be opened. An existing file of that name takes precedence over an option.
const char *answerTo(std::string_view option)
{
    std::error_code error;
    if (std::filesystem::exists(option, error))
        return nullptr;
    return option == "--help" ? usage : option == "--version" ? "kevra " KEVRA_VERSION "\n" : nullptr;
}

/// The reader of standard output and error may have exited or stopped reading: then the output is lost, and
/// the program neither dies nor blocks.
void outliveReaders()
{
#ifdef __unix__
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        struct stat status { };
        if (::fstat(stream, &status) != 0 || !S_ISFIFO(status.st_mode))
            continue;
        // Reopened, because O_NONBLOCK would also affect programs that share the descriptor, such as the
        // shell.
        const auto path = "/proc/self/fd/" + std::to_string(stream);
        const int own = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (own < 0)
            continue;
        ::dup2(own, stream);
        ::close(own);
    }
#endif
}

} // namespace

int main(int argc, char **argv)
{
    if (const char *answer = argc == 2 ? answerTo(argv[1]) : nullptr)
        return std::fputs(answer, stdout) < 0;
    outliveReaders();
    QApplication::setApplicationName("kevra");
    QApplication::setApplicationDisplayName("");
    QApplication::setDesktopFileName("org.kevra.editor");
    QApplication application(argc, argv);
    QApplication::setWindowIcon(kevra::svgIcon("kevra"));
    // The main window is hidden while a page is shown; only Quit ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    kevra::installComboBoxNames();
    kevra::Application kevra(kevra::programFolders());
    kevra.start(commandLine({argv, static_cast<std::size_t>(argc)}));
    return kevra.hasEnded() ? 0 : QApplication::exec();
}
