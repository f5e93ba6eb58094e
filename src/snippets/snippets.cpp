// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/snippets.h"

#include <array>

namespace kevra {
namespace {

using enum Insertion;
using enum SnippetPanel;

// Two differences between plain and commented texts are intended: only the commented texts have a blank after
// CopyFile and " = " before sh.RegRead.
constexpr auto table = std::to_array<Snippet>({
    {"bh", "HTML", Tag, Web1, 0, "<HTML>\r\n<HEAD>\r\n<TITLE></TITLE></HEAD>"},
    {"bmeta", "META", Tag, Web1, 0,
        "<META NAME=\"DESCRIPTION\" CONTENT=>\r\n<META NAME=\"KEYWORDS\" CONTENT=>"},
    {"bbc", "BODY", Tag, Web1, 0, "<BODY BGCOLOR= TEXT= LINK= ALINK= VLINK=>"},
    {"bend", "END", Tag, Web1, 0, "</BODY></HTML>"},
    {"bdiv", "DIV", Tag, Web1, 1, "<DIV align=>"},
    {"bxdiv", "/DIV", Tag, Web1, 1, "</DIV>"},
    {"bp", "P", Tag, Web1, 1, "<P>"},
    {"bbr", "BR", Tag, Web1, 1, "<BR>"},
    {"bhr", "HR", Tag, Web1, 1, "<HR>"},
    {"bh1", "H1", Tag, Web1, 1, "<H1></H1>"},
    {"bh2", "H2", Tag, Web1, 1, "<H2></H2>"},
    {"bb", "B", Tag, Web1, 2, "<B>"},
    {"bxb", "/B", Tag, Web1, 2, "</B>"},
    {"bi", "I", Tag, Web1, 2, "<I>"},
    {"bxi", "/I", Tag, Web1, 2, "</I>"},
    {"bu", "U", Tag, Web1, 2, "<U>"},
    {"bxu", "/U", Tag, Web1, 2, "</U>"},
    {"bf", "FONT", Tag, Web1, 2, "<FONT FACE= COLOR= SIZE=>"},
    {"bxf", "/FONT", Tag, Web1, 2, "</FONT>"},
    {"bcom", "<!-->", Tag, Web1, 2, "<!-- -->"},
    {"bview", "VIEW PAGE", Command, Web1, 3, "View the page in the browser window (F5)"},
    {"bsw1", "MORE \u25B8", Command, Web1, 3, "Show links, images and frames"},

    {"ba", "LINK", Tag, Web2, 0, "<A HREF=></A>"},
    {"batarg", "LINK TARGET", Tag, Web2, 0, "<A HREF= TARGET=></A>"},
    {"bim", "IMAGE", Command, Web2, 1, "Put an image tag on the clipboard"},
    {"bai", "IMAGE LINK", Command, Web2, 1, "Put a linked image tag on the clipboard"},
    {"bbi", "BODY IMAGE", Command, Web2, 1, "Put a body tag with a background image on the clipboard"},
    {"bfrsrc", "FRAME", Tag, Web2, 2, "<FRAME SRC= SCROLLING=>"},
    {"bfrcol", "FRAME COLS", Tag, Web2, 2, "<FRAMESET COLS=>\r\n\r\n</FRAMESET>"},
    {"bfrrow", "FRAME ROWS", Tag, Web2, 2, "<FRAMESET ROWS=>\r\n\r\n</FRAMESET>"},
    {"bview2", "VIEW PAGE", Command, Web2, 3, "View the page in the browser window (F5)"},
    {"bsw2", "\u25C2 BACK", Command, Web2, 3, "Show page structure and text"},

    {"bfsoset", "fso", ScriptLine, Script1, 0,
        "Dim fso\r\nSet fso = CreateObject(\"Scripting.FileSystemObject\")"},
    {"bfileexists", "Exists", ScriptLine, Script1, 0, "If fso.FileExists() Then"},
    {"bgetfile", "GetFile", ScriptLine, Script1, 0, "Set  = fso.GetFile()"},
    {"babspath", "AbsPath", ScriptLine, Script1, 1, " = fso.GetAbsolutePathName()"},
    {"bbase", "BaseName", ScriptLine, Script1, 1, " = fso.GetBaseName()"},
    {"bexten", "Extension", ScriptLine, Script1, 1, " = fso.GetExtensionName()"},
    {"bgetpar", "Parent", ScriptLine, Script1, 1, " = fso.GetParentFolderName()"},
    {"bcopyfile", "Copy", ScriptLine, Script1, 2, "fso.CopyFile",
        "fso.CopyFile \r\n'--CopyFile source, destination[, overwrite- as Bool.]"},
    {"bmovefile", "Move", ScriptLine, Script1, 2, "fso.MoveFile ",
        "fso.MoveFile \r\n'--MoveFile source, destination"},
    {"bdelfile", "Delete", ScriptLine, Script1, 2, "fso.DeleteFile",
        "fso.DeleteFile\r\n'--DeleteFile filename+path[, delete if read only- as Bool.]"},
    {"bcrfile", "Create", ScriptLine, Script1, 3, "Set  = fso.CreateTextFile()",
        "Set  = fso.CreateTextFile()\r\n'--(filename[, overwrite- as Bool.][, unicode- as Bool.])"},
    {"bfileopen", "Open", ScriptLine, Script1, 3, "Set  = fso.OpenTextFile()",
        "Set  = fso.OpenTextFile()\r\n'--(filename[, mode:1-read 2-write 8-append][, create if nonexisting- "
        "as "
        "Bool.][, format:0-ASCII -1-unicode])"},
    {"bcrfolder", "Folder", ScriptLine, Script1, 3, "Set  = fso.CreateFolder()"},
    {"bscrsw1", "MORE \u25B8", Command, Script1, 4, "Show strings and shell"},

    {"blen", "Len", ScriptLine, Script2, 0, " = Len()"},
    {"bucase", "UCase", ScriptLine, Script2, 0, " = UCase()"},
    {"binstr", "InStr", ScriptLine, Script2, 0, " = InStr()",
        " = InStr()\r\n'--([starting-point, ]string-to-search, string-to-find[, case sensitive- 0; case "
        "insens.- "
        "1])"},
    {"binstrrev", "InStrRev", ScriptLine, Script2, 0, " = InStrRev()",
        " = InStrRev()\r\n'--(string-to-search, string-to-find[, starting-point][, case sensitive- 0; case "
        "insens.- 1])"},
    {"bleft", "Left", ScriptLine, Script2, 0, " = Left()", " = Left()   '--(string, #-of-char.-to-return)"},
    {"bright", "Right", ScriptLine, Script2, 0, " = Right()",
        " = Right()   '--(string, #-of-char.-to-return)"},
    {"bmid", "Mid", ScriptLine, Script2, 0, " = Mid()",
        " = Mid()\r\n'--(full-string, position-to-start-at[, #-of-char.-to-return])"},
    {"brep", "Replace", ScriptLine, Script2, 0, "Replace()",
        "Replace()\r\n'--(full-string, string-to-replace, replacement-string[, char.-#-to-start-search][, "
        "#-of-times-to-replace][, compare-case-sens.- 0;comp.-case-insens.- 1])"},
    {"bsplit", "Split", ScriptLine, Script2, 0, " = Split()",
        " = Split()\r\n'--(string-to-be-split, [char.-that-marks-split-point][, #-strings-to-return][, "
        "compare-case-sens.- 0;comp.-case-insens.- 1])"},
    {"bcarret", "CrLf", Bare, Script2, 1, "VbCrLf"},
    {"bchr", "Chr(34)", Bare, Script2, 1, "Chr(34)"},
    {"bshellset", "Shell", ScriptLine, Script2, 2, "Dim sh\r\nSet sh = CreateObject(\"WScript.Shell\")"},
    {"brun", "Run", ScriptLine, Script2, 2, "sh.Run ",
        "sh.Run \r\n'--(full-path-of-.exe-to-run, [windowtype: 1-normal 3-max 6-min 0-hide], [wait for prog "
        "to "
        "end- as Bool.])must Dim and Set shell object."},
    {"bregread", "RegRead", ScriptLine, Script2, 2, "sh.RegRead()",
        " = sh.RegRead()\r\n'--(path of key\\ or value) must Dim and Set shell object. Use \\ at end of path "
        "for "
        "default key val."},
    {"brwrite", "RegWrite", ScriptLine, Script2, 2, "sh.RegWrite ",
        "sh.RegWrite \r\n'--(key\\ or value name, value to write [, type {REG_SZ,REG_EXPAND_SZ,REG_BINARY or "
        "REG_DWORD}])must Dim and Set shell object."},
    {"bregdel", "RegDel", ScriptLine, Script2, 2, "sh.RegDelete ",
        "sh.RegDelete \r\n'--(path of key\\ or value)must Dim and Set shell object. Use \\ at end of path "
        "for key."},
    {"bshtcut", "Shortcut", ScriptLine, Script2, 2,
        "Dim sh\r\n"
        "Set sh = CreateObject(\"WScript.Shell\")\r\n"
        "Dim shcut, d, dpath\r\n"
        "dpath = sh.SpecialFolders(\"Desktop\")\r\n"
        "Set shcut = sh.CreateShortcut(dpath & \"\\.lnk\")\r\n"
        "shcut.TargetPath = sh.ExpandEnvironmentStrings()\r\n"
        "shcut.WorkingDirectory = sh.ExpandEnvironmentStrings()\r\n"
        "shcut.WindowStyle = 4\r\n"
        "shcut.IconLocation = sh.ExpandEnvironmentStrings(\", 0\")\r\n"
        "shcut.Save",
        "Dim sh\r\n"
        "Set sh = CreateObject(\"WScript.Shell\")\r\n"
        "Dim shcut, d, dpath\r\n"
        "dpath = sh.SpecialFolders(\"Desktop\")\r\n"
        "Set shcut = sh.CreateShortcut(dpath & \"\\<<filename w/o .exe>>.lnk\")\r\n"
        "shcut.TargetPath = sh.ExpandEnvironmentStrings(<<executable path>>)\r\n"
        "shcut.WorkingDirectory = sh.ExpandEnvironmentStrings(<<path of folder containing executable>>)\r\n"
        "shcut.WindowStyle = 4\r\n"
        "shcut.IconLocation = sh.ExpandEnvironmentStrings(\"<<executable path>>, 0\")\r\n"
        "shcut.Save   '--Code needs to be filled in where there are double brackets:<< >>"},
    {"bscrsw2", "\u25C2 BACK", Command, Script2, 3, "Show files"},
});

} // namespace

std::span<const Snippet> snippets()
{
    return table;
}

std::string_view frameName(SnippetPanel panel)
{
    constexpr std::array<std::string_view, 4> names{"Frame1", "Frame2", "frscript1", "frscript2"};
    return names[static_cast<std::size_t>(panel)];
}

std::string_view textToInsert(const Snippet &snippet, bool withComments)
{
    return withComments && !snippet.commented.empty() ? snippet.commented : snippet.text;
}

} // namespace kevra
