// SPDX-License-Identifier: GPL-3.0-or-later
// A slow, literal implementation of the checker's procedures on a surface, search by search: the reference
// for the passes.
#pragma once

#include "editor/memory_surface.h"

#include <string>
#include <vector>

namespace kevra {

/// The names that need an object, in the three sections of the procedure.
extern const std::vector<std::vector<std::string>> sectionMembers;

class LiteralChecker {
public:
    LiteralChecker(MemorySurface &surface, bool ifChecking, bool colours)
        : t1(surface)
        , m_ifChecking(ifChecking)
        , m_colours(colours)
    {
    }

    void RunDebugger();
    void CheckLine();

    std::string tinfo;
    int lineStart = 0;
    int lineEnd = 0;
    bool lineFault = false;

private:
    int Find(std::string_view what, int start, int end, bool whole = false) const;
    int count(std::string_view what, int start, int end) const;
    std::string triple(int r) const;
    char at(int position) const;
    int inStr(char what, int from) const; // from 1; 0 when absent
    int inStrRev(char what, int from) const;
    void report(std::string_view message);
    void ColourText(bool debug);
    void CountBlocks(int start, int end);
    void UncountCommentBlocks();
    bool CheckObjectReferences();
    bool section(int number);

    MemorySurface &t1;
    bool m_ifChecking;
    bool m_colours;
    int m_counts[8] = {};
};

} // namespace kevra
