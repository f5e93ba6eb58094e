// SPDX-License-Identifier: GPL-3.0-or-later
#include "preview/page_clipboard_qt.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMimeData>
#include <QtCore/QtGlobal>
#include <QtGui/QClipboard>

#ifdef Q_OS_LINUX
#include <cstring>
#include <dlfcn.h>
#endif

namespace kevra {

namespace {

constexpr int copyTime = 1000; ///< ms that the engine's processes may take between the key and the clipboard

QDeadlineTimer &copyEnd()
{
    static QDeadlineTimer end;
    return end;
}

} // namespace

void allowPageCopy()
{
    copyEnd().setRemainingTime(copyTime);
}

#ifdef Q_OS_LINUX

namespace {

bool isEngine(void *caller)
{
    Dl_info library;
    return dladdr(caller, &library) != 0 && library.dli_fname
        && std::strstr(library.dli_fname, "libQt6WebEngineCore") != nullptr;
}

bool mayWrite(void *caller, QClipboard::Mode mode)
{
    return !isEngine(caller) || (mode == QClipboard::Clipboard && !copyEnd().hasExpired());
}

template <typename Function> Function libraryFunction(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

// There is no setting for it, and nothing between the engine and these two functions of the library. The
// engine finds what the program exports first, as it would for an allocator of the program's own.
#define KEVRA_SET "_ZN10QClipboard11setMimeDataEP9QMimeDataNS_4ModeE"
#define KEVRA_CLEAR "_ZN10QClipboard5clearENS_4ModeE"

[[gnu::visibility("default"), gnu::used]] void writeClipboard(
    QClipboard *clipboard, QMimeData *data, QClipboard::Mode mode) asm(KEVRA_SET);
[[gnu::visibility("default"), gnu::used]] void clearClipboard(
    QClipboard *clipboard, QClipboard::Mode mode) asm(KEVRA_CLEAR);

void writeClipboard(QClipboard *clipboard, QMimeData *data, QClipboard::Mode mode)
{
    static const auto write = libraryFunction<decltype(&writeClipboard)>(KEVRA_SET);
    if (mayWrite(__builtin_return_address(0), mode))
        write(clipboard, data, mode);
    else
        delete data;
}

void clearClipboard(QClipboard *clipboard, QClipboard::Mode mode)
{
    static const auto clear = libraryFunction<decltype(&clearClipboard)>(KEVRA_CLEAR);
    if (mayWrite(__builtin_return_address(0), mode))
        clear(clipboard, mode);
}

#endif

} // namespace kevra
