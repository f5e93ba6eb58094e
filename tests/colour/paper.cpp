// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/paper.h"

namespace kevra {
namespace {

const std::vector<std::u32string> wholePassWords{U"sub", U"end sub", U"end if", U"function", U"end function",
    U"set", U"do", U"dim", U"for", U"next", U"loop", U"if", U"else", U"elseif", U"call", U"then", U"msgbox",
    U"inputbox", U"not"};

bool isTwoWords(const std::u32string &keyword)
{
    return keyword.find(U' ') != std::u32string::npos;
}

void keywordPass(Paper &paper, int start, int end, Colour code)
{
    for (const auto &keyword : wholePassWords) {
        for (int pos = start; pos < end;) {
            const int found = paper.find(keyword, pos, end, !isTwoWords(keyword));
            if (found == -1 || found >= end)
                break;
            const int size = static_cast<int>(keyword.size());
            paper.paint(found, size, code);
            pos = found + size;
            if (keyword != U"next")
                continue;
            if (found - 1 < 1)
                return;
            const auto before = paper.at(found - 2);
            if (before != U'\n' && before != U'\r' && before != U' ')
                paper.paint(found, size, colours::black);
        }
    }
    for (int pos = start; pos < end || pos == start;) {
        const int a = paper.find(U"<<", pos, paper.length());
        if (a == -1 || a >= end)
            break;
        const int b = paper.find(U">>", pos, paper.length());
        if (b == -1 || b >= end)
            break;
        if (b - a + 2 < 0)
            return;
        paper.paint(a, b - a + 2, colours::placeholder);
        pos = b + 2;
    }
    for (int pos = start; pos < end || pos == start;) {
        const int c = paper.find(U"'--", pos, paper.length());
        if (c == -1 || c >= end)
            break;
        const int line = paper.find(U"\r", c, paper.length());
        paper.paint(c, (line == -1 ? paper.length() : line) - c, colours::separatorComment);
        pos = c + 3;
    }
}

} // namespace

void colourTagsStepByStep(Paper &paper, Colour code)
{
    const int length = paper.length();
    int pos = 1;
    do {
        int lt = paper.find(U"<", pos - 1, length) + 1;
        if (lt == 0)
            return;
        const int gt = paper.find(U">", lt, length) + 1;
        if (gt == 0)
            return;
        const Paper tag(paper.text.substr(static_cast<std::size_t>(lt), static_cast<std::size_t>(gt - lt)));
        const int inner = paper.length() ? tag.find(U"<", lt, tag.length()) + 1 : 0;
        if (inner != 0)
            lt = inner;
        paper.paint(lt - 1, gt - lt + 1, code);
        pos = gt + 1;
    } while (pos < length);
}

void colourScriptStepByStep(Paper &paper, Colour code)
{
    paper.paint(0, paper.length(), colours::black);
    int rangeStart = 0;
    for (int next = 0;;) {
        const int quote = paper.find(U"\"", next, paper.length());
        if (quote == -1)
            break;
        keywordPass(paper, rangeStart, quote, code);
        const int closing = paper.find(U"\"", quote + 1, paper.length());
        if (closing == -1)
            break;
        next = rangeStart = closing + 1;
    }
    keywordPass(paper, rangeStart, paper.length(), code);
}

bool colourRegionStepByStep(Paper &paper, int start, int end, Colour code)
{
    for (const auto &keyword : wholePassWords) {
        for (int pos = start; pos < end;) {
            const int found = paper.find(keyword, pos, end, !isTwoWords(keyword));
            if (found == -1)
                break;
            paper.paint(found, static_cast<int>(keyword.size()), code);
            pos = found + static_cast<int>(keyword.size());
        }
    }
    int pos = start == 0 ? 1 : start;
    do {
        const int a = paper.find(U"<<", pos - 1, paper.length()) + 1;
        if (a == 0 || a >= end)
            break;
        const int b = paper.find(U">>", pos - 1, paper.length()) + 1;
        if (b - a + 2 < 0)
            return false;
        paper.paint(a - 1, b - a + 2, colours::placeholder);
        if (b + 2 <= pos)
            return false; // it would never end
        pos = b + 2;
    } while (pos < end);
    pos = start == 0 ? 1 : start;
    do {
        const int c = paper.find(U"'--", pos - 1, paper.length()) + 1;
        if (c == 0 || c >= end)
            break;
        const int line = paper.find(U"\r", c - 1, paper.length());
        paper.paint(c - 1, (line == -1 ? paper.length() : line) - (c - 1), colours::separatorComment);
        pos = c + 3;
    } while (pos < end);
    return true;
}

} // namespace kevra
