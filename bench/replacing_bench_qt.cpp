// SPDX-License-Identifier: GPL-3.0-or-later
// CPU of replacing and counting in pages of 1, 10 and 64 MB in the control, one hit a line of 100 bytes; the
// same beside a string in memory, memmem and vim for a hit in every fifth line of 10 MB; and the time of a
// replacement in many files. Milliseconds, the best of five; the files are written once.
//   QT_QPA_PLATFORM=offscreen build/release/bin/replacing_bench [FILES]
#include "editor/editor_control_qt.h"
#include "fakes/document_state.h"
#include "find/find_commands.h"
#include "find/multi_replace.h"
#include "storage/file_store_posix.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sys/resource.h>

namespace {

using namespace kevra;

constexpr std::string_view line = "<p><b>Hours</b> <i>Mo</i></p> of the shop, and in summer as well as on "
                                  "days between the years.. ..\r\n";
constexpr std::string_view hit = "Hours";
constexpr std::string_view replacement = "Opening hrs";
constexpr int linesOfAMegabyte = 10'000;
constexpr int linesOfAFile = 100;

double cpu()
{
    return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC;
}

double wall()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

/// With a hit in every `hitEvery`th line.
std::string page(int count, int hitEvery = 1)
{
    std::string other(line);
    other.replace(other.find(hit), hit.size(), "House");
    std::string text;
    for (int i = 0; i < count; ++i)
        text += i % hitEvery == 0 ? std::string(line) : other;
    return text;
}

class Quiet : public Messages {
public:
    Answer show(const Message &message) override
    {
        std::printf("message: %s\n", message.text.c_str());
        return Answer::Yes;
    }
};

class Entered : public FindView {
public:
    FindRequest request{std::string(hit), std::string(replacement), Case::Match, Word::Any};
    Offset count = 0;
    [[nodiscard]] FindRequest entered() const override { return request; }
    void showCount(Offset found) override { count = found; }
    void hitSelected() override { }
    void showReplaced(Offset replaced) override { count = replaced; }
    void showWrapped(std::string_view) override { }
};

void inTheDocument(int megabytes, int hitEvery)
{
    const auto text = page(megabytes * linesOfAMegabyte, hitEvery);
    double replacing = 1e9;
    double counting = 1e9;
    double countingEither = 1e9;
    Entered view;
    for (int run = 0; run < 5; ++run) {
        EditorControl control;
        control.resize(900, 600);
        control.show();
        control.LoadText(text);
        FakeDocumentState state;
        Quiet messages;
        FindCommands commands({control, state}, messages, view);
        const auto measure = [&](auto command, Case letters, double &best) {
            view.request.letters = letters;
            const auto start = cpu();
            (commands.*command)();
            best = std::min(best, cpu() - start);
        };
        measure(&FindCommands::countOccurrences, Case::Match, counting);
        measure(&FindCommands::countOccurrences, Case::Ignore, countingEither);
        measure(&FindCommands::replaceAll, Case::Match, replacing);
    }
    std::printf("%d MB, %lld replaced: %.1f ms; counted: %.2f ms, in any case %.2f ms\n", megabytes,
        static_cast<long long>(view.count), replacing, counting, countingEither);
}

template <typename Work> double bestOfFive(Work work)
{
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        const auto start = cpu();
        work();
        best = std::min(best, cpu() - start);
    }
    return best;
}

std::size_t replacedInMemory(std::string_view text)
{
    std::string out;
    for (;;) {
        const auto at = text.find(hit);
        out += text.substr(0, at);
        if (at == std::string_view::npos)
            return out.size();
        out += replacement;
        text.remove_prefix(at + hit.size());
    }
}

std::size_t countedInACopy(std::string text, std::string wanted)
{
    const auto lower
        = [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte; };
    std::ranges::transform(text, text.begin(), lower);
    std::ranges::transform(wanted, wanted.begin(), lower);
    std::size_t count = 0;
    for (auto at = text.find(wanted); at != std::string::npos; at = text.find(wanted, at + 1))
        ++count;
    return count;
}

/// CPU of vim with these commands, its start and the loading of the file included.
double vim(const QString &path, const QStringList &commands)
{
    const auto children = [] {
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        const auto milliseconds = [](const timeval &time) {
            return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        };
        return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    };
    const auto start = children();
    QProcess::execute(
        "vim", QStringList{"-es", "-u", "NONE", "-N", path} + commands + QStringList{"-c", "qall!"});
    return children() - start;
}

void besideOthers(int megabytes, int hitEvery)
{
    const auto text = page(megabytes * linesOfAMegabyte, hitEvery);
    std::size_t sum = 0;
    std::printf("    the same on a string in memory: %.1f ms; counted in a small copy by find: %.2f ms\n",
        bestOfFive([&] { sum += replacedInMemory(text); }),
        bestOfFive([&] { sum += countedInACopy(text, std::string(hit)); }));
    const QTemporaryDir folder;
    QFile file(folder.filePath("page.html"));
    if (sum == 0 || !file.open(QFile::WriteOnly)
        || file.write(text.data(), std::ssize(text)) != std::ssize(text))
        return void(std::puts("The file could not be made."));
    file.close();
    const auto substitute = QString("%s/%1/%2/g")
                                .arg(QLatin1String(hit.data(), hit.size()),
                                    QLatin1String(replacement.data(), replacement.size()));
    double loading = 1e9;
    double both = 1e9;
    for (int run = 0; run < 5; ++run) {
        loading = std::min(loading, vim(file.fileName(), {}));
        both = std::min(both, vim(file.fileName(), {"-c", substitute}));
    }
    std::printf("    vim: %.0f ms, of which loading %.0f ms\n", both, loading);
}

class NoDocument : public OpenDocument {
public:
    [[nodiscard]] bool isDocument(const std::string &) const override { return false; }
    [[nodiscard]] bool hasUnsavedChangesOf(const std::string &) const override { return false; }
    void fileWritten(const std::string &) override { }
};

class Console : public MultiView {
public:
    [[nodiscard]] MultiRequest entered() const override
    {
        return {{std::string(hit), std::string(replacement), Case::Match, Word::Any}, false};
    }
    void showFiles(const std::vector<ListedFile> &) override { }
    void showFile(std::size_t, const ListedFile &) override { }
    bool shouldContinue(std::size_t, std::size_t) override { return true; }
    void showSummary(const std::string &text) override { summary = text; }
    void showUndo(bool) override { }
    std::string summary;
};

void inFiles(int count)
{
    const QTemporaryDir folder;
    const auto text = page(linesOfAFile);
    FileStorePosix files(folder.filePath("state").toStdString(), folder.path().toStdString());
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
        paths.push_back(folder.filePath(QString("%1.html").arg(i)).toStdString());
        QFile file(QString::fromStdString(paths.back()));
        if (!file.open(QFile::WriteOnly) || file.write(text.data(), std::ssize(text)) != std::ssize(text))
            return void(std::puts("The files could not be made."));
    }
    NoDocument open;
    Quiet messages;
    Console view;
    MultiReplace commands(files, open, messages, view);
    commands.addFiles(paths);
    for (const auto command : {&MultiReplace::preview, &MultiReplace::replaceAll}) {
        const auto start = wall();
        const auto startCpu = cpu();
        (commands.*command)();
        std::printf("%d files of %zu bytes: %.0f ms, CPU %.0f ms: %s\n", count, text.size(), wall() - start,
            cpu() - startCpu, view.summary.c_str());
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    for (const int megabytes : {1, 10, 64})
        inTheDocument(megabytes, 1);
    inTheDocument(10, 5);
    besideOthers(10, 5);
    inFiles(argc > 1 ? std::atoi(argv[1]) : 2000);
}
