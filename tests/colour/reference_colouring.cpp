// SPDX-License-Identifier: GPL-3.0-or-later
#include "colour/reference_colouring.h"

namespace kevra {
namespace {

const std::vector<std::u32string> wholePassWords{U"sub", U"end sub", U"end if", U"function", U"end function",
    U"set", U"do", U"dim", U"for", U"next", U"loop", U"if", U"else", U"elseif", U"call", U"then", U"msgbox",
    U"inputbox", U"not"};

bool isTwoWords(const std::u32string &keyword)
{
    return keyword.find(U' ') != std::u32string::npos;
}

void keywordPass(ReferenceColouring &reference, int start, int end, Colour code)
{
    for (const auto &keyword : wholePassWords) {
        for (int pos = start; pos < end;) {
            const int found = reference.find(keyword, pos, end, !isTwoWords(keyword));
            if (found == -1 || found >= end)
                break;
            const int size = static_cast<int>(keyword.size());
            reference.paint(found, size, code);
            pos = found + size;
            if (keyword != U"next")
                continue;
            if (found - 1 < 1)
                return;
            const auto before = reference.at(found - 2);
            if (before != U'\n' && before != U'\r' && before != U' ')
                reference.paint(found, size, colours::black);
        }
    }
    for (int pos = start; pos < end || pos == start;) {
        const int a = reference.find(U"<<", pos, reference.length());
        if (a == -1 || a >= end)
            break;
        const int b = reference.find(U">>", pos, reference.length());
        if (b == -1 || b >= end)
            break;
        if (b - a + 2 < 0)
            return;
        reference.paint(a, b - a + 2, colours::placeholder);
        pos = b + 2;
    }
    for (int pos = start; pos < end || pos == start;) {
        const int c = reference.find(U"'--", pos, reference.length());
        if (c == -1 || c >= end)
            break;
        const int line = reference.find(U"\r", c, reference.length());
        reference.paint(c, (line == -1 ? reference.length() : line) - c, colours::separatorComment);
        pos = c + 3;
    }
}

} // namespace

void colourTagsStepByStep(ReferenceColouring &reference, Colour code)
{
    const int length = reference.length();
    int pos = 1;
    do {
        int lt = reference.find(U"<", pos - 1, length) + 1;
        if (lt == 0)
            return;
        const int gt = reference.find(U">", lt, length) + 1;
        if (gt == 0)
            return;
        const ReferenceColouring tag(
            reference.text.substr(static_cast<std::size_t>(lt), static_cast<std::size_t>(gt - lt)));
        const int inner = reference.length() ? tag.find(U"<", lt, tag.length()) + 1 : 0;
        if (inner != 0)
            lt = inner;
        reference.paint(lt - 1, gt - lt + 1, code);
        pos = gt + 1;
    } while (pos < length);
}

void colourScriptStepByStep(ReferenceColouring &reference, Colour code)
{
    reference.paint(0, reference.length(), colours::black);
    int rangeStart = 0;
    for (int next = 0;;) {
        const int quote = reference.find(U"\"", next, reference.length());
        if (quote == -1)
            break;
        keywordPass(reference, rangeStart, quote, code);
        const int closing = reference.find(U"\"", quote + 1, reference.length());
        if (closing == -1)
            break;
        next = rangeStart = closing + 1;
    }
    keywordPass(reference, rangeStart, reference.length(), code);
}

bool colourRegionStepByStep(ReferenceColouring &reference, int start, int end, Colour code)
{
    for (const auto &keyword : wholePassWords) {
        for (int pos = start; pos < end;) {
            const int found = reference.find(keyword, pos, end, !isTwoWords(keyword));
            if (found == -1)
                break;
            reference.paint(found, static_cast<int>(keyword.size()), code);
            pos = found + static_cast<int>(keyword.size());
        }
    }
    int pos = start == 0 ? 1 : start;
    do {
        const int a = reference.find(U"<<", pos - 1, reference.length()) + 1;
        if (a == 0 || a >= end)
            break;
        const int b = reference.find(U">>", pos - 1, reference.length()) + 1;
        if (b - a + 2 < 0)
            return false;
        reference.paint(a - 1, b - a + 2, colours::placeholder);
        if (b + 2 <= pos)
            return false; // it would never terminate
        pos = b + 2;
    } while (pos < end);
    pos = start == 0 ? 1 : start;
    do {
        const int c = reference.find(U"'--", pos - 1, reference.length()) + 1;
        if (c == 0 || c >= end)
            break;
        const int line = reference.find(U"\r", c - 1, reference.length());
        reference.paint(c - 1, (line == -1 ? reference.length() : line) - (c - 1), colours::separatorComment);
        pos = c + 3;
    } while (pos < end);
    return true;
}

} // namespace kevra
