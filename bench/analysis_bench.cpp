// SPDX-License-Identifier: GPL-3.0-or-later
// The analysis of whole scripts: milliseconds of CPU, best of five, for parsing and for the rules.
#include "script/analysis.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>

using namespace kevra::script;

namespace {

double cpuMilliseconds()
{
    std::timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Procedures with names of their own, as a long script has them.
std::string script(std::size_t size)
{
    std::string out = "Option Explicit\r\n";
    for (int i = 0; out.size() < size; ++i) {
        const auto n = std::to_string(i);
        out += "Sub Work" + n + "(ByVal path" + n + ", count)\r\n    Dim fso, file, total, i\r\n"
            + "    Set fso = CreateObject(\"Scripting.FileSystemObject\")\r\n    total = 0\r\n    For i = 1 "
              "To count\r\n"
            + "        If fso.FileExists(path" + n
            + " & \"\\\" & i & \".txt\") Then\r\n            Set file = fso.GetFile(path" + n
            + ")\r\n            total = total + file.Size / 1024 ' in KB\r\n        ElseIf Len(path" + n
            + ") > 3 And i <> 2 Then\r\n            MsgBox \"missing: \" & Mid(path" + n
            + ", 2, 3), vbExclamation, \"Work\"\r\n        Else\r\n            Call Work" + n + "(path" + n
            + ", i)\r\n        End If\r\n    Next\r\n    WScript.Echo \"done \" & total\r\nEnd Sub\r\n\r\n";
    }
    return out;
}

std::string repeated(const std::string &unit, std::size_t size)
{
    std::string out;
    while (out.size() < size)
        out += unit;
    return out;
}

void measure(const char *name, const std::string &text)
{
    double parsing = 1e9;
    double rules = 1e9;
    std::size_t found = 0;
    for (int round = 0; round < 5; ++round) {
        const auto start = cpuMilliseconds();
        const auto parsed = parse(text);
        const auto middle = cpuMilliseconds();
        found = analyse(parsed).size();
        parsing = std::min(parsing, middle - start);
        rules = std::min(rules, cpuMilliseconds() - middle);
    }
    std::printf("%-24s %6.1f MB  parse %7.1f  rules %7.1f  together %7.1f  findings %zu\n", name,
        static_cast<double>(text.size()) / 1e6, parsing, rules, parsing + rules, found);
}

} // namespace

int main()
{
    constexpr std::size_t megabyte = 1'000'000;
    measure("a script", script(megabyte));
    measure("a script", script(10 * megabyte));
    measure("only quotes", repeated("\"", 10 * megabyte));
    measure("one line", repeated("a = b + c : ", 10 * megabyte));
    measure("deep blocks", repeated("If a Then\n", megabyte));
    measure("deep parentheses", "x = " + repeated("(", megabyte));
    measure("silenced lines", repeated("'kevra: off\nSet x = 1\n", megabyte));
    measure("a chain of variables", [] {
        std::string out;
        for (int i = 0; out.size() < megabyte; ++i)
            out += "Set v" + std::to_string(i + 1) + " = v" + std::to_string(i) + "\n";
        return out;
    }());
    return 0;
}
