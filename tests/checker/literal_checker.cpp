// SPDX-License-Identifier: GPL-3.0-or-later
#include "checker/literal_checker.h"

#include "colour/document_colouring.h"
#include "fakes/document_state.h"
#include "text/words.h"

#include <vector>

namespace kevra {
namespace {

const std::string quote = "\"";
const std::vector<std::string> blockKeywords{"if", "end if", "for", "next", "sub", "end sub", "do", "loop"};
} // namespace

const std::vector<std::vector<std::string>> sectionMembers{
    {"FileExists", "FolderExists", "DeleteFile", "DeleteFolder", "MoveFile", "CopyFile", "CopyFolder",
        "CreateFolder", "CreateTextFile", "OpenTextFile", "GetFile", "GetAbsolutePathName", "GetBaseName",
        "GetExtensionName", "GetParentFolderName", "DriveExists", "GetDrive", "GetFolder", "GetTempName",
        "OpenAsTextStream"},
    {"RegWrite ", "RegRead(", "RegDelete ", "Run "},
    {"AtEndOfLine", "AtEndOfStream", "Close", "ReadAll", "ReadLine", "Skip", "SkipLine", "Write ",
        "WriteBlankLines", "WriteLine", "SubFolders", "FreeSpace", "DriveType"}};

namespace {

const std::vector<std::string> sectionMessages{"FileSystemObject required - Line ",
    "Shell Object required - Line ", "Textstream, Drive or Folder Object required - Line "};
const std::vector<std::string> sectionNeeds{"FileSystemObject", "WScript.Shell", ""};

} // namespace

int LiteralChecker::Find(std::string_view what, int start, int end, bool whole) const
{
    return static_cast<int>(
        t1.Find(what, {start, end}, {.words = whole ? Word::Whole : Word::Any}).value_or(-1));
}

int LiteralChecker::count(std::string_view what, int start, int end) const
{
    int hits = 0;
    for (int r = Find(what, start, end); r != -1; r = Find(what, r + 1, end))
        ++hits;
    return hits;
}

char LiteralChecker::at(int position) const
{
    return position >= 0 && position < t1.TextLength() ? t1.Text()[static_cast<std::size_t>(position)] : '\0';
}

std::string LiteralChecker::triple(int r) const
{
    return {at(r - 1), at(r), at(r + 1)};
}

int LiteralChecker::inStr(char what, int from) const
{
    return static_cast<int>(t1.Text().find(what, static_cast<std::size_t>(std::max(from, 1) - 1)) + 1);
}

int LiteralChecker::inStrRev(char what, int from) const
{
    return from < 1 ? 0 : static_cast<int>(t1.Text().rfind(what, static_cast<std::size_t>(from - 1)) + 1);
}

void LiteralChecker::report(std::string_view message)
{
    tinfo = std::string(message) + std::to_string(t1.GetLineFromChar(lineStart + 1) + 1);
    t1.SetSelStart(lineStart);
    t1.SetSelLength(lineEnd - lineStart + 1);
    t1.SetSelColor(colours::fault);
    t1.SetSelLength(0);
    t1.SetSelStart(lineEnd);
    t1.SetSelColor(colours::black);
    lineFault = true;
}

void LiteralChecker::CheckLine()
{
    lineFault = false;
    const int scanStart = lineStart == 1 ? 0 : lineStart;
    const int comment = Find("'--", scanStart, lineEnd);
    const int scanEnd = comment != -1 ? comment : lineEnd + 1;
    const int quotes = count(quote, scanStart, scanEnd);
    if (quotes == 1 || quotes == 3 || quotes == 5 || quotes == 7 || quotes == 9)
        return report("Quotation mark missing - Line ");
    if (count("(", lineStart, scanEnd) != count(")", scanStart, scanEnd))
        return report("Parenthesis missing - Line ");
    const auto code = [&](int r) {
        const int before = count(quote, lineStart, r);
        return before == 0 || before == 2 || before == 4 || before == 6;
    };
    for (int r = Find(",", lineStart, scanEnd); r != -1; r = Find(",", r + 1, scanEnd)) {
        const auto around = triple(r);
        if ((around.front() == ' ' || around.back() != ' ') && code(r))
            return report("Spacing around comma is wrong - Line ");
    }
    for (int r = Find("=", lineStart, scanEnd); r != -1 && r != 0; r = Find("=", r + 1, scanEnd)) {
        const auto around = triple(r);
        const bool passes = around == "\n= " || around == "<= " || around == ">= " || around == " = ";
        if (!passes && code(r))
            return report("Wrong spacing at equal sign - Line ");
    }
    const int r = Find("if", lineStart, scanEnd, true);
    if (r == -1)
        return;
    if (r > lineStart + 2 && lowerAscii(at(r - 2)) == 'd')
        return;
    if (Find(quote, lineStart, r) != -1)
        return;
    const int then = Find("then", lineStart, scanEnd, true);
    if (then == -1 || !code(then))
        report("IF without THEN - Line ");
}

void LiteralChecker::ColourText(bool debug)
{
    FakeDocumentState state;
    if (!debug)
        return DocumentColouring({t1, state}).ColourText();
    DocumentColouring({t1, state}).removeColours();
    int start = 0;
    for (;;) {
        const int opening = Find(quote, start, static_cast<int>(t1.TextLength()));
        if (opening == -1)
            break;
        CountBlocks(start, opening);
        const int closing = Find(quote, opening + 1, static_cast<int>(t1.TextLength()));
        if (closing == -1)
            break;
        start = closing + 1;
    }
    CountBlocks(start, static_cast<int>(t1.TextLength()));
}

void LiteralChecker::CountBlocks(int start, int end)
{
    for (std::size_t i = 0; i < blockKeywords.size(); ++i) {
        const auto &keyword = blockKeywords[i];
        const bool whole = keyword.find(' ') == std::string::npos;
        for (int p = start; p < end;) {
            const int r = Find(keyword, p, end, whole);
            if (r == -1)
                break;
            const char before = at(r - 2);
            const bool looks = (keyword == "next" || keyword == "do") && r >= 3;
            if (!looks || before == '\r' || before == '\n' || before == ' ')
                ++m_counts[i];
            p = r + static_cast<int>(keyword.size());
        }
    }
}

void LiteralChecker::UncountCommentBlocks()
{
    const int length = static_cast<int>(t1.TextLength());
    for (int pos = 0; pos < length;) {
        const int c = Find("'--", pos, length);
        if (c == -1)
            return;
        int e = Find("\r", c, length);
        if (e == -1)
            e = length;
        for (std::size_t i = 0; i < blockKeywords.size(); ++i) {
            const auto &keyword = blockKeywords[i];
            const bool whole = keyword.find(' ') == std::string::npos;
            for (int p = c; p < e;) {
                const int r = Find(keyword, p, e, whole);
                if (r == -1)
                    break;
                const char before = at(r - 2);
                const bool looks = keyword == "next" && r >= 3;
                if ((!looks || before == '\r' || before == '\n' || before == ' ') && m_counts[i] > 0)
                    --m_counts[i];
                p = r + static_cast<int>(keyword.size());
            }
        }
        pos = e + 1;
    }
}

bool LiteralChecker::section(int number)
{
    const auto index = static_cast<std::size_t>(number);
    const int length = static_cast<int>(t1.TextLength());
    if (!sectionNeeds[index].empty() && Find(sectionNeeds[index], 0, length) == -1)
        return false;
    for (const auto &member : sectionMembers[index]) {
        for (int p = 0; p < length;) {
            const int r = Find(member, p, length);
            if (r == -1)
                break;
            p = r + 1;
            const int lineStartPos = inStrRev('\n', r);
            if (at(r - 1) == '.')
                continue;
            if (number == 2 && member == "Write " && r >= 3 && Find("reg", r - 3, r) != -1)
                continue;
            if (Find("'", lineStartPos, r) != -1)
                continue;
            const int quotes = count(quote, lineStartPos, r);
            if (number == 2 && (quotes == 1 || quotes == 3 || quotes == 5 || quotes == 7))
                continue;
            int lineEndPos = inStr('\r', r);
            tinfo = sectionMessages[index] + std::to_string(t1.GetLineFromChar(lineStartPos) + 1);
            if (lineEndPos == 0)
                lineEndPos = length;
            t1.SetSelStart(lineStartPos);
            t1.SetSelLength(lineEndPos - lineStartPos + 1);
            t1.SetSelColor(colours::fault);
            t1.SetSelLength(0);
            t1.SetSelStart(lineEndPos - 1);
            t1.SetSelColor(colours::black);
            return true;
        }
    }
    return false;
}

bool LiteralChecker::CheckObjectReferences()
{
    return section(0) || section(1) || section(2);
}

void LiteralChecker::RunDebugger()
{
    for (auto &counter : m_counts)
        counter = 0;
    const int length = static_cast<int>(t1.TextLength());
    lineFault = false;
    for (int pos = 1; pos < length;) {
        if (lineFault) {
            if (m_colours)
                ColourText(false);
            t1.SetSelStart(lineStart);
            t1.SetSelLength(lineEnd - lineStart + 1);
            t1.SetSelColor(colours::fault);
            t1.SetSelLength(0);
            t1.SetSelStart(lineEnd - 1);
            t1.SetSelColor(colours::black);
            return;
        }
        const int cr = inStr('\r', pos);
        if (cr == 0 || cr >= length)
            break;
        lineStart = pos;
        lineEnd = cr;
        CheckLine();
        pos = cr + 1;
    }
    if (lineFault)
        return;
    ColourText(true);
    UncountCommentBlocks();
    if (m_colours)
        ColourText(false);
    const auto say = [&](const char *open, int opened, const char *close, int closed) {
        tinfo = std::string(open) + " - " + std::to_string(opened) + "   " + close + " - "
            + std::to_string(closed);
    };
    if (m_ifChecking && m_counts[0] != 2 * m_counts[1])
        say("IF", m_counts[0] - m_counts[1], "END IF", m_counts[1]);
    else if (m_counts[2] != m_counts[3])
        say("FOR", m_counts[2], "NEXT", m_counts[3]);
    else if (m_counts[4] != 2 * m_counts[5])
        say("SUB", m_counts[4] - m_counts[5], "END SUB", m_counts[5]);
    else if (m_counts[6] != m_counts[7])
        say("DO", m_counts[6], "LOOP", m_counts[7]);
    else if (CheckObjectReferences())
        return;
    else
        tinfo = "OK";
    t1.SetSelStart(0);
}

} // namespace kevra
