// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/differences.h"

#include "text/middle_difference.h"

#include <git2.h>

#include <dlfcn.h>

#include <new>

namespace kevra {
namespace {

/// libgit2 brings a dozen libraries for networks along, which a start of the program would wait for; so it is
/// loaded for the first comparison. Starting it costs more than most comparisons, so it is kept.
class Library {
public:
    Library()
        : m_handle(dlopen(KEVRA_LIBGIT2, RTLD_NOW | RTLD_LOCAL))
    {
        load(m_initialise, "git_libgit2_init");
        load(m_shutDown, "git_libgit2_shutdown");
        load(initialiseOptions, "git_diff_options_init");
        load(compare, "git_diff_buffers");
        m_loaded = m_initialise && m_shutDown && initialiseOptions && compare && m_initialise() > 0;
    }
    ~Library()
    {
        if (m_loaded)
            m_shutDown();
    }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    [[nodiscard]] bool isLoaded() const { return m_loaded; }

    decltype(&git_diff_options_init) initialiseOptions = nullptr;
    decltype(&git_diff_buffers) compare = nullptr;

private:
    template <typename Function> void load(Function &function, const char *name)
    {
        if (m_handle)
            function = reinterpret_cast<Function>(dlsym(m_handle, name));
    }

    void *m_handle; ///< null: not there
    decltype(&git_libgit2_init) m_initialise = nullptr;
    decltype(&git_libgit2_shutdown) m_shutDown = nullptr;
    bool m_loaded = false;
};

/// The library counts lines from 1, and gives an empty range the number of the line before it.
Offset startOf(int line, int count)
{
    return count == 0 ? line : line - 1;
}

int addHunk(const git_diff_delta *, const git_diff_hunk *hunk, void *hunks)
{
    static_cast<std::vector<Hunk> *>(hunks)->push_back({startOf(hunk->old_start, hunk->old_lines),
        hunk->old_lines, startOf(hunk->new_start, hunk->new_lines), hunk->new_lines});
    return 0;
}

} // namespace

std::vector<Hunk> differences(std::string_view before, std::string_view after)
{
    // Answered without starting the library.
    if (before == after)
        return {};
    static const Library library;
    if (!library.isLoaded())
        return middleDifference(before, after);
    git_diff_options options;
    library.initialiseOptions(&options, GIT_DIFF_OPTIONS_VERSION);
    options.context_lines = 0;
    options.flags = GIT_DIFF_FORCE_TEXT;
    std::vector<Hunk> hunks;
    if (library.compare(before.data(), before.size(), nullptr, after.data(), after.size(), nullptr, &options,
            nullptr, nullptr, addHunk, nullptr, &hunks)
        != 0)
        throw std::bad_alloc();
    return hunks;
}

} // namespace kevra
