// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/differences.h"

#include <git2.h>

#include <new>

namespace kevra {
namespace {

/// Starting the library costs more than most comparisons, so it is started once and kept.
class Library {
public:
    Library() { git_libgit2_init(); }
    ~Library() { git_libgit2_shutdown(); }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;
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
    git_diff_options options;
    git_diff_options_init(&options, GIT_DIFF_OPTIONS_VERSION);
    options.context_lines = 0;
    options.flags = GIT_DIFF_FORCE_TEXT;
    std::vector<Hunk> hunks;
    if (git_diff_buffers(before.data(), before.size(), nullptr, after.data(), after.size(), nullptr, &options,
            nullptr, nullptr, addHunk, nullptr, &hunks)
        != 0)
        throw std::bad_alloc();
    return hunks;
}

} // namespace kevra
