// SPDX-License-Identifier: GPL-3.0-or-later
// Members of the objects of the script host and its shell. Rows for host_objects.cpp, each table in ascending
// order of names.
#pragma once

#include "script/host_members.h"

namespace kevra::script::host_members {

inline constexpr Member wscript[] = {
    {"Application", readOnly, "", WScript, "The object itself."},
    {"Arguments", readOnly, "", Arguments, "What the script was started with."},
    {"BuildVersion", readOnly, "", Value, "The host's build number."},
    {"ConnectObject", method, "object, prefix", Value,
        "Calls procedures named by the prefix for the object's events."},
    {"CreateObject", method, "progId, [prefix]", Unknown,
        "A new object, with its events if a prefix is given."},
    {"DisconnectObject", method, "object", Value, "Ends the calls for an object's events."},
    {"Echo", method, "[value...]", Value, "Shows the values, in a box or on the console."},
    {"FullName", readOnly, "", Value, "The path of the host program."},
    {"GetObject", method, "path, [progId], [prefix]", Unknown, "The object of a file or moniker."},
    {"Interactive", property, "", Value, "Whether boxes and messages are shown."},
    {"Name", readOnly, "", Value, "The name of the host."},
    {"Path", readOnly, "", Value, "The folder of the host program."},
    {"Quit", method, "[exitCode]", Value, "Ends the script."},
    {"ScriptFullName", readOnly, "", Value, "The script's full path."},
    {"ScriptName", readOnly, "", Value, "The script's file name."},
    {"Sleep", method, "milliseconds", Value, "Waits."},
    {"StdErr", readOnly, "", TextOutput, "Standard errors; in the console host only."},
    {"StdIn", readOnly, "", TextInput, "Standard input; in the console host only."},
    {"StdOut", readOnly, "", TextOutput, "Standard output; in the console host only."},
    {"Timeout", property, "", Value, "The seconds after which the host ends the script; 0 is never."},
    {"Version", readOnly, "", Value, "The host's version."},
};

inline constexpr Member arguments[] = {
    {"Count", method, "", Value, "How many arguments there are."},
    {"Item", readOnly, "index", Value, "An argument, from 0."},
    {"Length", readOnly, "", Value, "How many arguments there are."},
    {"Named", readOnly, "", NamedArguments, "Arguments of the form /name:value."},
    {"ShowUsage", method, "", Value, "Shows how the script is used."},
    {"Unnamed", readOnly, "", UnnamedArguments, "The other arguments."},
};

inline constexpr Member namedArguments[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Exists", method, "name", Value, "Whether it was given."},
    {"Item", readOnly, "name", Value, "Its value."},
    {"Length", readOnly, "", Value, "How many there are."},
};

inline constexpr Member unnamedArguments[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "index", Value, "One of them, from 0."},
    {"Length", readOnly, "", Value, "How many there are."},
};

inline constexpr Member textInput[] = {
    {"AtEndOfLine", readOnly, "", Value, "Whether a line end comes next."},
    {"AtEndOfStream", readOnly, "", Value, "Whether the input has ended."},
    {"Close", method, "", Value, "Closes the stream."},
    {"Column", readOnly, "", Value, "The column of the next character."},
    {"Line", readOnly, "", Value, "The current line."},
    {"Read", method, "count", Value, "The next characters."},
    {"ReadAll", method, "", Value, "All that is left."},
    {"ReadLine", method, "", Value, "The next line."},
    {"Skip", method, "count", Value, "Passes over characters."},
    {"SkipLine", method, "", Value, "Passes over a line."},
};

inline constexpr Member textOutput[] = {
    {"Close", method, "", Value, "Closes the stream."},
    {"Column", readOnly, "", Value, "The current column."},
    {"Line", readOnly, "", Value, "The current line."},
    {"Write", method, "text", Value, "Writes the text."},
    {"WriteBlankLines", method, "count", Value, "Writes line ends."},
    {"WriteLine", method, "[text]", Value, "Writes the text and a line end."},
};

inline constexpr Member wshShell[] = {
    {"AppActivate", method, "title, [wait]", Value,
        "Brings a window to the front, by title or process number."},
    {"CreateShortcut", method, "path", WshShortcut, "A shortcut, new or as it is; Save writes it."},
    {"CurrentDirectory", property, "", Value, "The current folder."},
    {"Environment", readOnly, "[kind]", WshEnvironment,
        "\"System\", \"User\", \"Volatile\" or \"Process\" variables."},
    {"Exec", method, "command", WshExec, "Starts a program whose input and output are streams."},
    {"ExpandEnvironmentStrings", method, "text", Value, "The text with its %variables% filled in."},
    {"LogEvent", method, "type, message, [server]", Value, "Writes to the event log."},
    {"Popup", method, "text, [seconds], [title], [buttons]", Value,
        "A message box that can close by itself."},
    {"RegDelete", method, "name", Value, "Deletes a key (with a backslash at its end) or a value."},
    {"RegRead", method, "name", Unknown, "Reads a value of the registry."},
    {"RegWrite", method, "name, value, [type]", Value, "Writes a value of the registry."},
    {"Run", method, "command, [windowStyle], [wait]", Value,
        "Starts a program; its exit code if waited for."},
    {"SendKeys", method, "keys, [wait]", Value, "Types keys into the active window."},
    {"SpecialFolders", readOnly, "", WshSpecialFolders, "Paths such as \"Desktop\" and \"MyDocuments\"."},
};

inline constexpr Member wshNetwork[] = {
    {"AddPrinterConnection", method, "localName, remoteName, [remember], [user], [password]", Value,
        "Connects a network printer to a port."},
    {"AddWindowsPrinterConnection", method, "path, [driver], [port]", Value, "Adds a network printer."},
    {"ComputerName", readOnly, "", Value, "This computer's name."},
    {"EnumNetworkDrives", method, "", WshCollection, "Letters and shares of network drives, in turns."},
    {"EnumPrinterConnections", method, "", WshCollection, "Ports and names of printers, in turns."},
    {"MapNetworkDrive", method, "letter, share, [remember], [user], [password]", Value,
        "Connects a network drive."},
    {"Organization", readOnly, "", Value, "The registered organisation."},
    {"RemoveNetworkDrive", method, "name, [force], [forget]", Value, "Disconnects a network drive."},
    {"RemovePrinterConnection", method, "name, [force], [forget]", Value, "Removes a network printer."},
    {"SetDefaultPrinter", method, "name", Value, "Makes a printer the default one."},
    {"Site", readOnly, "", Value, "The site this computer is in."},
    {"UserDomain", readOnly, "", Value, "The user's domain."},
    {"UserName", readOnly, "", Value, "The user's name."},
    {"UserProfile", readOnly, "", Value, "The user's profile."},
};

inline constexpr Member wshShortcut[] = {
    {"Arguments", property, "", Value, "What the program is started with."},
    {"Description", property, "", Value, "The comment."},
    {"FullName", readOnly, "", Value, "The shortcut's own path."},
    {"HotKey", property, "", Value, "The keys that start it, such as \"Ctrl+Alt+K\"."},
    {"IconLocation", property, "", Value, "\"file, index\" of the icon."},
    {"Load", method, "path", Value, "Reads a shortcut."},
    {"RelativePath", writeOnly, "", Value, "The folder the target is relative to."},
    {"Save", method, "", Value, "Writes the shortcut."},
    {"TargetPath", property, "", Value, "What it leads to."},
    {"WindowStyle", property, "", Value, "Normal 1, maximised 3, minimised 7."},
    {"WorkingDirectory", property, "", Value, "The folder the program starts in."},
};

inline constexpr Member wshEnvironment[] = {
    {"Count", method, "", Value, "How many variables there are."},
    {"Item", property, "name", Value, "A variable; empty if it is not set."},
    {"Length", readOnly, "", Value, "How many variables there are."},
    {"Remove", method, "name", Value, "Removes a variable."},
};

inline constexpr Member wshExec[] = {
    {"ExitCode", readOnly, "", Value, "The exit code; 0 while it runs."},
    {"ProcessID", readOnly, "", Value, "The process number."},
    {"Status", readOnly, "", Value, "0 while it runs, 1 afterwards."},
    {"StdErr", readOnly, "", TextInput, "The program's errors."},
    {"StdIn", readOnly, "", TextOutput, "The program's input."},
    {"StdOut", readOnly, "", TextInput, "The program's output."},
    {"Terminate", method, "", Value, "Ends the program."},
};

inline constexpr Member wshSpecialFolders[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "name", Value, "The path of a folder."},
    {"Length", readOnly, "", Value, "How many there are."},
};

inline constexpr Member wshCollection[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "index", Value, "One of them, from 0."},
    {"Length", readOnly, "", Value, "How many there are."},
};

inline constexpr Member wshController[] = {
    {"CreateScript", method, "command, [computer]", WshRemote, "A script on another computer."},
};

inline constexpr Member wshRemote[] = {
    {"Error", readOnly, "", Object, "What went wrong there."},
    {"Execute", method, "", Value, "Starts it."},
    {"Status", readOnly, "", Value, "0 not started, 1 running, 2 ended."},
    {"Terminate", method, "", Value, "Ends it."},
};

inline constexpr Member err[] = {
    {"Clear", method, "", Value, "Forgets the error."},
    {"Description", property, "", Value, "The error's text."},
    {"HelpContext", property, "", Value, "A topic of the help file."},
    {"HelpFile", property, "", Value, "A help file."},
    {"Number", property, "", Value, "The error's number; 0 if there was none."},
    {"Raise", method, "number, [source], [description], [helpFile], [helpContext]", Value,
        "Causes an error."},
    {"Source", property, "", Value, "Who reported the error."},
};

} // namespace kevra::script::host_members
