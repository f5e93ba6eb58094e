// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/host_objects.h"

#include "script/sorted_names.h"

namespace kevra::script {
namespace {

using enum TypeId;
constexpr auto method = MemberKind::Method;
constexpr auto property = MemberKind::Property;
constexpr auto readOnly = MemberKind::ReadOnly;
constexpr auto writeOnly = MemberKind::WriteOnly;

constexpr Member fileSystemObject[] = {
    {"BuildPath", method, "folder, name", Value,
        "A path from a folder and a name, with one backslash between."},
    {"CopyFile", method, "source, destination, [overwrite]", Value,
        "Copies files; the last part may have wildcards."},
    {"CopyFolder", method, "source, destination, [overwrite]", Value, "Copies folders with all they hold."},
    {"CreateFolder", method, "path", Folder, "Makes a folder; fails if it exists."},
    {"CreateTextFile", method, "path, [overwrite], [unicode]", TextStream, "Makes a text file and opens it."},
    {"DeleteFile", method, "path, [force]", Value, "Deletes files; force takes read-only ones too."},
    {"DeleteFolder", method, "path, [force]", Value, "Deletes folders with all they hold."},
    {"DriveExists", method, "drive", Value, "Whether there is such a drive."},
    {"Drives", readOnly, "", Drives, "All drives."},
    {"FileExists", method, "path", Value, "Whether there is such a file."},
    {"FolderExists", method, "path", Value, "Whether there is such a folder."},
    {"GetAbsolutePathName", method, "path", Value, "The full path, from the current folder."},
    {"GetBaseName", method, "path", Value, "The last part of a path, without its extension."},
    {"GetDrive", method, "drive", Drive, "A drive by its letter or share."},
    {"GetDriveName", method, "path", Value, "The drive in a path."},
    {"GetExtensionName", method, "path", Value, "What follows the last dot of a path."},
    {"GetFile", method, "path", File, "A file that exists."},
    {"GetFileName", method, "path", Value, "The last part of a path."},
    {"GetFileVersion", method, "path", Value, "The version a program file carries."},
    {"GetFolder", method, "path", Folder, "A folder that exists."},
    {"GetParentFolderName", method, "path", Value, "A path without its last part."},
    {"GetSpecialFolder", method, "which", Folder, "Windows (0), system (1) or temporary (2) folder."},
    {"GetStandardStream", method, "which, [unicode]", TextStream,
        "Standard input (0), output (1) or errors (2)."},
    {"GetTempName", method, "", Value, "A random file name; no file is made."},
    {"MoveFile", method, "source, destination", Value, "Moves or renames files."},
    {"MoveFolder", method, "source, destination", Value, "Moves or renames folders."},
    {"OpenTextFile", method, "path, [mode], [create], [format]", TextStream,
        "Opens a text file to read (1), write (2) or append (8)."},
};

constexpr Member textStream[] = {
    {"AtEndOfLine", readOnly, "", Value, "Whether a line end comes next."},
    {"AtEndOfStream", readOnly, "", Value, "Whether everything was read."},
    {"Close", method, "", Value, "Closes the file."},
    {"Column", readOnly, "", Value, "The column of the next character, from 1."},
    {"Line", readOnly, "", Value, "The current line, from 1."},
    {"Read", method, "count", Value, "The next characters."},
    {"ReadAll", method, "", Value, "All that is left."},
    {"ReadLine", method, "", Value, "The next line, without its line end."},
    {"Skip", method, "count", Value, "Passes over characters."},
    {"SkipLine", method, "", Value, "Passes over a line."},
    {"Write", method, "text", Value, "Writes the text."},
    {"WriteBlankLines", method, "count", Value, "Writes line ends."},
    {"WriteLine", method, "[text]", Value, "Writes the text and a line end."},
};

constexpr Member file[] = {
    {"Attributes", property, "", Value, "Read-only 1, hidden 2, system 4, folder 16, archive 32, added up."},
    {"Copy", method, "destination, [overwrite]", Value, "Copies the file."},
    {"DateCreated", readOnly, "", Value, "When it was made."},
    {"DateLastAccessed", readOnly, "", Value, "When it was last opened."},
    {"DateLastModified", readOnly, "", Value, "When it was last written."},
    {"Delete", method, "[force]", Value, "Deletes the file."},
    {"Drive", readOnly, "", Drive, "The drive it is on."},
    {"Move", method, "destination", Value, "Moves the file."},
    {"Name", property, "", Value, "Its name; set, it renames."},
    {"OpenAsTextStream", method, "[mode], [format]", TextStream, "Opens it as text."},
    {"ParentFolder", readOnly, "", Folder, "The folder it is in."},
    {"Path", readOnly, "", Value, "Its full path."},
    {"ShortName", readOnly, "", Value, "Its 8.3 name."},
    {"ShortPath", readOnly, "", Value, "Its path in 8.3 names."},
    {"Size", readOnly, "", Value, "Its size in bytes."},
    {"Type", readOnly, "", Value, "What the system calls this type of file."},
};

constexpr Member folder[] = {
    {"Attributes", property, "", Value, "Read-only 1, hidden 2, system 4, folder 16, archive 32, added up."},
    {"Copy", method, "destination, [overwrite]", Value, "Copies the folder with all it holds."},
    {"CreateTextFile", method, "name, [overwrite], [unicode]", TextStream, "Makes a text file in it."},
    {"DateCreated", readOnly, "", Value, "When it was made."},
    {"DateLastAccessed", readOnly, "", Value, "When it was last opened."},
    {"DateLastModified", readOnly, "", Value, "When it was last written."},
    {"Delete", method, "[force]", Value, "Deletes the folder with all it holds."},
    {"Drive", readOnly, "", Drive, "The drive it is on."},
    {"Files", readOnly, "", Files, "The files in it, hidden ones too."},
    {"IsRootFolder", readOnly, "", Value, "Whether it is a drive's root."},
    {"Move", method, "destination", Value, "Moves the folder."},
    {"Name", property, "", Value, "Its name; set, it renames."},
    {"ParentFolder", readOnly, "", Folder, "The folder it is in."},
    {"Path", readOnly, "", Value, "Its full path."},
    {"ShortName", readOnly, "", Value, "Its 8.3 name."},
    {"ShortPath", readOnly, "", Value, "Its path in 8.3 names."},
    {"Size", readOnly, "", Value, "The bytes of all files below it."},
    {"SubFolders", readOnly, "", Folders, "The folders in it."},
    {"Type", readOnly, "", Value, "What the system calls it."},
};

constexpr Member files[] = {
    {"Count", readOnly, "", Value, "How many files there are."},
    {"Item", readOnly, "name", File, "The file of this name."},
};

constexpr Member folders[] = {
    {"Add", method, "name", Folder, "Makes a folder."},
    {"Count", readOnly, "", Value, "How many folders there are."},
    {"Item", readOnly, "name", Folder, "The folder of this name."},
};

constexpr Member drive[] = {
    {"AvailableSpace", readOnly, "", Value, "The bytes the user may still fill."},
    {"DriveLetter", readOnly, "", Value, "Its letter."},
    {"DriveType", readOnly, "", Value, "Unknown 0, removable 1, fixed 2, network 3, CD 4, memory 5."},
    {"FileSystem", readOnly, "", Value, "\"NTFS\", \"FAT32\" and so on."},
    {"FreeSpace", readOnly, "", Value, "The free bytes."},
    {"IsReady", readOnly, "", Value, "Whether a medium is in it."},
    {"Path", readOnly, "", Value, "Its letter and a colon."},
    {"RootFolder", readOnly, "", Folder, "Its root."},
    {"SerialNumber", readOnly, "", Value, "The number that identifies the volume."},
    {"ShareName", readOnly, "", Value, "The network share behind it."},
    {"TotalSize", readOnly, "", Value, "Its size in bytes."},
    {"VolumeName", property, "", Value, "The volume's name."},
};

constexpr Member drives[] = {
    {"Count", readOnly, "", Value, "How many drives there are."},
    {"Item", readOnly, "drive", Drive, "The drive of this letter."},
};

constexpr Member dictionary[] = {
    {"Add", method, "key, item", Value, "Adds an entry; fails if the key is there."},
    {"CompareMode", property, "", Value, "0 tells capitals apart, 1 does not; set while empty."},
    {"Count", readOnly, "", Value, "How many entries there are."},
    {"Exists", method, "key", Value, "Whether the key is there."},
    {"HashVal", readOnly, "key", Value, "The number the key is stored under."},
    {"Item", property, "key", Unknown, "The entry of a key; reading a missing one adds it."},
    {"Items", method, "", ArrayOfValues, "All entries as an array."},
    {"Key", writeOnly, "key", Value, "Gives an entry another key."},
    {"Keys", method, "", ArrayOfValues, "All keys as an array."},
    {"Remove", method, "key", Value, "Removes an entry; fails if the key is missing."},
    {"RemoveAll", method, "", Value, "Removes all entries."},
};

constexpr Member regExp[] = {
    {"Execute", method, "text", Matches, "All matches in a text, or the first if Global is False."},
    {"Global", property, "", Value, "Whether all matches count."},
    {"IgnoreCase", property, "", Value, "Whether capitals count as small letters."},
    {"Multiline", property, "", Value, "Whether ^ and $ match at line ends."},
    {"Pattern", property, "", Value, "The regular expression."},
    {"Replace", method, "text, replacement", Value, "The text with its matches replaced; $1 is a group."},
    {"Test", method, "text", Value, "Whether the text has a match."},
};

constexpr Member matches[] = {
    {"Count", readOnly, "", Value, "How many matches there are."},
    {"Item", readOnly, "index", Match, "A match, from 0."},
};

constexpr Member match[] = {
    {"FirstIndex", readOnly, "", Value, "Where it starts, from 0."},
    {"Length", readOnly, "", Value, "How long it is."},
    {"SubMatches", readOnly, "", SubMatches, "What the groups matched."},
    {"Value", readOnly, "", Value, "The text that matched."},
};

constexpr Member subMatches[] = {
    {"Count", readOnly, "", Value, "How many groups there are."},
    {"Item", readOnly, "index", Value, "What a group matched, from 0."},
};

constexpr Member wscript[] = {
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

constexpr Member arguments[] = {
    {"Count", method, "", Value, "How many arguments there are."},
    {"Item", readOnly, "index", Value, "An argument, from 0."},
    {"Length", readOnly, "", Value, "How many arguments there are."},
    {"Named", readOnly, "", NamedArguments, "Arguments of the form /name:value."},
    {"ShowUsage", method, "", Value, "Shows how the script is used."},
    {"Unnamed", readOnly, "", UnnamedArguments, "The other arguments."},
};

constexpr Member namedArguments[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Exists", method, "name", Value, "Whether it was given."},
    {"Item", readOnly, "name", Value, "Its value."},
    {"Length", readOnly, "", Value, "How many there are."},
};

constexpr Member unnamedArguments[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "index", Value, "One of them, from 0."},
    {"Length", readOnly, "", Value, "How many there are."},
};

constexpr Member textInput[] = {
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

constexpr Member textOutput[] = {
    {"Close", method, "", Value, "Closes the stream."},
    {"Column", readOnly, "", Value, "The current column."},
    {"Line", readOnly, "", Value, "The current line."},
    {"Write", method, "text", Value, "Writes the text."},
    {"WriteBlankLines", method, "count", Value, "Writes line ends."},
    {"WriteLine", method, "[text]", Value, "Writes the text and a line end."},
};

constexpr Member wshShell[] = {
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

constexpr Member wshNetwork[] = {
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

constexpr Member wshShortcut[] = {
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

constexpr Member wshEnvironment[] = {
    {"Count", method, "", Value, "How many variables there are."},
    {"Item", property, "name", Value, "A variable; empty if it is not set."},
    {"Length", readOnly, "", Value, "How many variables there are."},
    {"Remove", method, "name", Value, "Removes a variable."},
};

constexpr Member wshExec[] = {
    {"ExitCode", readOnly, "", Value, "The exit code; 0 while it runs."},
    {"ProcessID", readOnly, "", Value, "The process number."},
    {"Status", readOnly, "", Value, "0 while it runs, 1 afterwards."},
    {"StdErr", readOnly, "", TextInput, "The program's errors."},
    {"StdIn", readOnly, "", TextOutput, "The program's input."},
    {"StdOut", readOnly, "", TextInput, "The program's output."},
    {"Terminate", method, "", Value, "Ends the program."},
};

constexpr Member wshSpecialFolders[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "name", Value, "The path of a folder."},
    {"Length", readOnly, "", Value, "How many there are."},
};

constexpr Member wshCollection[] = {
    {"Count", method, "", Value, "How many there are."},
    {"Item", readOnly, "index", Value, "One of them, from 0."},
    {"Length", readOnly, "", Value, "How many there are."},
};

constexpr Member wshController[] = {
    {"CreateScript", method, "command, [computer]", WshRemote, "A script on another computer."},
};

constexpr Member wshRemote[] = {
    {"Error", readOnly, "", Object, "What went wrong there."},
    {"Execute", method, "", Value, "Starts it."},
    {"Status", readOnly, "", Value, "0 not started, 1 running, 2 ended."},
    {"Terminate", method, "", Value, "Ends it."},
};

constexpr Member err[] = {
    {"Clear", method, "", Value, "Forgets the error."},
    {"Description", property, "", Value, "The error's text."},
    {"HelpContext", property, "", Value, "A topic of the help file."},
    {"HelpFile", property, "", Value, "A help file."},
    {"Number", property, "", Value, "The error's number; 0 if there was none."},
    {"Raise", method, "number, [source], [description], [helpFile], [helpContext]", Value,
        "Causes an error."},
    {"Source", property, "", Value, "Who reported the error."},
};

constexpr Member connection[] = {
    {"Attributes", property, "", Value, "How transactions go on."},
    {"BeginTrans", method, "", Value, "Starts a transaction."},
    {"Cancel", method, "", Value, "Ends a call that is under way."},
    {"Close", method, "", Value, "Closes the connection."},
    {"CommandTimeout", property, "", Value, "Seconds a command may take."},
    {"CommitTrans", method, "", Value, "Keeps a transaction."},
    {"ConnectionString", property, "", Value, "What to connect to."},
    {"ConnectionTimeout", property, "", Value, "Seconds connecting may take."},
    {"CursorLocation", property, "", Value, "2 server, 3 client."},
    {"DefaultDatabase", property, "", Value, "The database in use."},
    {"Errors", readOnly, "", AdoErrors, "What the provider reported."},
    {"Execute", method, "command, [affected], [options]", Recordset, "Runs a command."},
    {"IsolationLevel", property, "", Value, "How far transactions see one another."},
    {"Mode", property, "", Value, "The rights asked for."},
    {"Open", method, "[connectionString], [user], [password], [options]", Value, "Connects."},
    {"OpenSchema", method, "query, [criteria], [schema]", Recordset, "Tables, columns and so on."},
    {"Properties", readOnly, "", AdoProperties, "The provider's own properties."},
    {"Provider", property, "", Value, "The provider's name."},
    {"RollbackTrans", method, "", Value, "Undoes a transaction."},
    {"State", readOnly, "", Value, "0 closed, 1 open."},
    {"Version", readOnly, "", Value, "The library's version."},
};

constexpr Member recordset[] = {
    {"AbsolutePage", property, "", Value, "The current page."},
    {"AbsolutePosition", property, "", Value, "The current record's number."},
    {"ActiveCommand", readOnly, "", Command, "The command it came from."},
    {"ActiveConnection", property, "", Unknown, "The connection."},
    {"AddNew", method, "[fields], [values]", Value, "Adds a record."},
    {"BOF", readOnly, "", Value, "Whether it stands before the first record."},
    {"Bookmark", property, "", Value, "Identifies the current record."},
    {"CacheSize", property, "", Value, "Records kept locally."},
    {"Cancel", method, "", Value, "Ends a call that is under way."},
    {"CancelBatch", method, "[affected]", Value, "Drops the changes not sent."},
    {"CancelUpdate", method, "", Value, "Drops the current record's changes."},
    {"Clone", method, "[lockType]", Recordset, "A second view of the same records."},
    {"Close", method, "", Value, "Closes it."},
    {"Collect", property, "field", Value, "The value of a field."},
    {"CompareBookmarks", method, "first, second", Value, "The order of two bookmarks."},
    {"CursorLocation", property, "", Value, "2 server, 3 client."},
    {"CursorType", property, "", Value, "0 forward, 1 keyset, 2 dynamic, 3 static."},
    {"DataMember", property, "", Value, "The set of the data source."},
    {"DataSource", property, "", Object, "Where the data comes from."},
    {"Delete", method, "[affected]", Value, "Deletes the current record."},
    {"EditMode", readOnly, "", Value, "Whether the record is being changed."},
    {"EOF", readOnly, "", Value, "Whether it stands after the last record."},
    {"Fields", readOnly, "", Fields, "The current record's fields."},
    {"Filter", property, "", Value, "Which records are seen."},
    {"Find", method, "criteria, [skip], [direction], [start]", Value, "Goes to a record."},
    {"GetRows", method, "[count], [start], [fields]", ArrayOfValues, "Records as a two-dimensional array."},
    {"GetString", method, "[format], [count], [columns], [rows], [null]", Value, "Records as text."},
    {"Index", property, "", Value, "The index in use."},
    {"LockType", property, "", Value, "1 read-only, 2 pessimistic, 3 optimistic, 4 batch."},
    {"MarshalOptions", property, "", Value, "Which records go back to the server."},
    {"MaxRecords", property, "", Value, "How many records at most."},
    {"Move", method, "count, [start]", Value, "Goes on by that many records."},
    {"MoveFirst", method, "", Value, "Goes to the first record."},
    {"MoveLast", method, "", Value, "Goes to the last record."},
    {"MoveNext", method, "", Value, "Goes to the next record."},
    {"MovePrevious", method, "", Value, "Goes to the record before."},
    {"NextRecordset", method, "[affected]", Recordset, "The next result of the command."},
    {"Open", method, "[source], [connection], [cursorType], [lockType], [options]", Value, "Opens it."},
    {"PageCount", readOnly, "", Value, "How many pages there are."},
    {"PageSize", property, "", Value, "Records on a page."},
    {"Properties", readOnly, "", AdoProperties, "The provider's own properties."},
    {"RecordCount", readOnly, "", Value, "How many records there are; -1 if not known."},
    {"Requery", method, "[options]", Value, "Runs the query again."},
    {"Resync", method, "[affected], [values]", Value, "Reads the records again."},
    {"Save", method, "[destination], [format]", Value, "Writes the records to a file."},
    {"Seek", method, "keys, [option]", Value, "Goes to a record by the index."},
    {"Sort", property, "", Value, "The fields to sort by."},
    {"Source", property, "", Unknown, "The command or table."},
    {"State", readOnly, "", Value, "0 closed, 1 open."},
    {"Status", readOnly, "", Value, "The record's state after a batch."},
    {"StayInSync", property, "", Value, "Whether child records follow."},
    {"Supports", method, "option", Value, "What can be done with it."},
    {"Update", method, "[fields], [values]", Value, "Writes the current record."},
    {"UpdateBatch", method, "[affected]", Value, "Sends all changes."},
};

constexpr Member fields[] = {
    {"Append", method, "name, type, [size], [attributes], [value]", Value, "Adds a field."},
    {"CancelUpdate", method, "", Value, "Drops changes of the fields."},
    {"Count", readOnly, "", Value, "How many fields there are."},
    {"Delete", method, "field", Value, "Removes a field."},
    {"Item", readOnly, "field", Field, "A field by name or number from 0."},
    {"Refresh", method, "", Value, "Reads the fields again."},
    {"Resync", method, "[values]", Value, "Reads the values again."},
    {"Update", method, "", Value, "Keeps changes of the fields."},
};

constexpr Member field[] = {
    {"ActualSize", readOnly, "", Value, "The length of its value."},
    {"AppendChunk", method, "data", Value, "Adds to a long value."},
    {"Attributes", property, "", Value, "What the field may hold."},
    {"DataFormat", property, "", Object, "How it is shown."},
    {"DefinedSize", property, "", Value, "The length it may have."},
    {"GetChunk", method, "length", Value, "A part of a long value."},
    {"Name", readOnly, "", Value, "Its name."},
    {"NumericScale", property, "", Value, "Digits after the point."},
    {"OriginalValue", readOnly, "", Value, "The value before changes."},
    {"Precision", property, "", Value, "Digits at most."},
    {"Properties", readOnly, "", AdoProperties, "The provider's own properties."},
    {"Status", readOnly, "", Value, "Whether it was added or changed."},
    {"Type", property, "", Value, "The number of its data type."},
    {"UnderlyingValue", readOnly, "", Value, "The value in the database now."},
    {"Value", property, "", Unknown, "Its value."},
};

constexpr Member command[] = {
    {"ActiveConnection", property, "", Unknown, "The connection."},
    {"Cancel", method, "", Value, "Ends a call that is under way."},
    {"CommandStream", property, "", Object, "The command as a stream."},
    {"CommandText", property, "", Value, "The command."},
    {"CommandTimeout", property, "", Value, "Seconds it may take."},
    {"CommandType", property, "", Value, "1 text, 2 table, 4 stored procedure."},
    {"CreateParameter", method, "[name], [type], [direction], [size], [value]", AdoParameter,
        "A new parameter."},
    {"Dialect", property, "", Value, "The language of the command."},
    {"Execute", method, "[affected], [parameters], [options]", Recordset, "Runs the command."},
    {"Name", property, "", Value, "Its name."},
    {"NamedParameters", property, "", Value, "Whether parameters go by their names."},
    {"Parameters", readOnly, "", AdoParameters, "The parameters."},
    {"Prepared", property, "", Value, "Whether it is compiled first."},
    {"Properties", readOnly, "", AdoProperties, "The provider's own properties."},
    {"State", readOnly, "", Value, "0 closed, 1 open, 4 running."},
};

constexpr Member adoParameters[] = {
    {"Append", method, "parameter", Value, "Adds a parameter."},
    {"Count", readOnly, "", Value, "How many there are."},
    {"Delete", method, "name", Value, "Removes a parameter."},
    {"Item", readOnly, "name", AdoParameter, "A parameter by name or number."},
    {"Refresh", method, "", Value, "Asks the provider for the parameters."},
};

constexpr Member stream[] = {
    {"Cancel", method, "", Value, "Ends a call that is under way."},
    {"Charset", property, "", Value, "How text is encoded, such as \"utf-8\"."},
    {"Close", method, "", Value, "Closes it."},
    {"CopyTo", method, "stream, [count]", Value, "Copies into another stream."},
    {"EOS", readOnly, "", Value, "Whether it stands at its end."},
    {"Flush", method, "", Value, "Writes what is waiting."},
    {"LineSeparator", property, "", Value, "-1 CRLF, 10 LF, 13 CR."},
    {"LoadFromFile", method, "path", Value, "Reads a file into it."},
    {"Mode", property, "", Value, "1 read, 2 write, 3 both."},
    {"Open", method, "[source], [mode], [options], [user], [password]", Value, "Opens it."},
    {"Position", property, "", Value, "The current byte, from 0."},
    {"Read", method, "[count]", Value, "Bytes."},
    {"ReadText", method, "[count]", Value, "Characters; -1 all, -2 a line."},
    {"SaveToFile", method, "path, [options]", Value, "Writes it to a file; 2 replaces one."},
    {"SetEOS", method, "", Value, "Ends it here."},
    {"Size", readOnly, "", Value, "Its length in bytes."},
    {"SkipLine", method, "", Value, "Passes over a line."},
    {"State", readOnly, "", Value, "0 closed, 1 open."},
    {"Type", property, "", Value, "1 bytes, 2 text."},
    {"Write", method, "bytes", Value, "Writes bytes."},
    {"WriteText", method, "text, [option]", Value, "Writes text; 1 adds a line end."},
};

constexpr Member xmlHttp[] = {
    {"abort", method, "", Value, "Ends the request."},
    {"getAllResponseHeaders", method, "", Value, "All headers of the answer."},
    {"getOption", method, "option", Value, "A setting."},
    {"getResponseHeader", method, "name", Value, "A header of the answer."},
    {"onreadystatechange", writeOnly, "", Value, "Called when the state changes."},
    {"onTimeout", writeOnly, "", Value, "Called when time has run out."},
    {"open", method, "method, url, [async], [user], [password]", Value, "Prepares a request."},
    {"overrideMimeType", method, "type", Value, "How the answer is read."},
    {"readyState", readOnly, "", Value, "4 when the answer is complete."},
    {"responseBody", readOnly, "", Value, "The answer as bytes."},
    {"responseStream", readOnly, "", Unknown, "The answer as a stream."},
    {"responseText", readOnly, "", Value, "The answer as text."},
    {"responseType", property, "", Value, "What kind of answer is wanted."},
    {"responseXML", readOnly, "", DomDocument, "The answer as a document."},
    {"send", method, "[body]", Value, "Sends the request."},
    {"setOption", method, "option, value", Value, "Changes a setting."},
    {"setProxy", method, "setting, [server], [bypass]", Value, "Which proxy is used."},
    {"setProxyCredentials", method, "user, password", Value, "The proxy's user and password."},
    {"setRequestHeader", method, "name, value", Value, "A header of the request."},
    {"setTimeouts", method, "resolve, connect, send, receive", Value, "Milliseconds for each part."},
    {"status", readOnly, "", Value, "The answer's number, such as 200."},
    {"statusText", readOnly, "", Value, "The answer's words, such as \"OK\"."},
    {"timeout", property, "", Value, "Milliseconds the request may take."},
    {"waitForResponse", method, "[seconds]", Value, "Waits for the answer."},
    {"withCredentials", property, "", Value, "Whether credentials go along."},
};

constexpr Member winHttp[] = {
    {"Abort", method, "", Value, "Ends the request."},
    {"GetAllResponseHeaders", method, "", Value, "All headers of the answer."},
    {"GetResponseHeader", method, "name", Value, "A header of the answer."},
    {"Open", method, "method, url, [async]", Value, "Prepares a request."},
    {"Option", property, "option", Value, "A setting."},
    {"ResponseBody", readOnly, "", Value, "The answer as bytes."},
    {"ResponseStream", readOnly, "", Unknown, "The answer as a stream."},
    {"ResponseText", readOnly, "", Value, "The answer as text."},
    {"Send", method, "[body]", Value, "Sends the request."},
    {"SetAutoLogonPolicy", method, "policy", Value, "When the user's own credentials go along."},
    {"SetClientCertificate", method, "certificate", Value, "The certificate to identify with."},
    {"SetCredentials", method, "user, password, for", Value,
        "User and password for server (0) or proxy (1)."},
    {"SetProxy", method, "setting, [server], [bypass]", Value, "Which proxy is used."},
    {"SetRequestHeader", method, "name, value", Value, "A header of the request."},
    {"SetTimeouts", method, "resolve, connect, send, receive", Value, "Milliseconds for each part."},
    {"Status", readOnly, "", Value, "The answer's number, such as 200."},
    {"StatusText", readOnly, "", Value, "The answer's words, such as \"OK\"."},
    {"WaitForResponse", method, "[seconds]", Value, "Waits for the answer."},
};

constexpr bool withDefault = true;
constexpr bool noDefault = false;

// In the order of TypeId from FileSystemObject on.
constexpr Member request[] = {
    {"BinaryRead", method, "count", Value, "Bytes of what the browser has sent."},
    {"ClientCertificate", readOnly, "[key]", Unknown, "The fields of the browser's certificate."},
    {"Cookies", readOnly, "[name]", Unknown, "The cookies that the browser has sent."},
    {"Form", readOnly, "[name]", Unknown, "The fields of the form that was sent."},
    {"Item", readOnly, "name", Unknown, "Looks for a name in all collections."},
    {"QueryString", readOnly, "[name]", Unknown, "The values behind the question mark of the address."},
    {"ServerVariables", readOnly, "[name]", Unknown, "What the server knows of the request."},
    {"TotalBytes", readOnly, "", Value, "How many bytes the browser has sent."},
};

constexpr Member response[] = {
    {"AddHeader", method, "name, value", Value, "Adds a header to the answer."},
    {"AppendToLog", method, "text", Value, "Adds text to the entry in the server's log."},
    {"BinaryWrite", method, "data", Value, "Writes bytes as they are."},
    {"Buffer", property, "", Value, "Whether the page is sent when it is complete."},
    {"CacheControl", property, "", Value, "Whether others may keep the page."},
    {"Charset", property, "", Value, "The character set named in the header."},
    {"Clear", method, "", Value, "Drops what waits to be sent."},
    {"CodePage", property, "", Value, "The code page of the text that is written."},
    {"ContentType", property, "", Value, "The type of the answer, text/html by default."},
    {"Cookies", readOnly, "[name]", Unknown, "The cookies that the browser gets."},
    {"End", method, "", Value, "Sends what waits and ends the page."},
    {"Expires", property, "", Value, "Minutes for which the page may be kept."},
    {"ExpiresAbsolute", property, "", Value, "Date until which the page may be kept."},
    {"Flush", method, "", Value, "Sends what waits."},
    {"IsClientConnected", readOnly, "", Value, "Whether the browser still waits."},
    {"LCID", property, "", Value, "The locale of dates, numbers and currency."},
    {"PICS", method, "label", Value, "Adds a rating to the header."},
    {"Redirect", method, "address", Value, "Sends the browser to another address."},
    {"Status", property, "", Value, "The status line, such as 404 Not Found."},
    {"Write", method, "text", Value, "Writes text into the page."},
};

constexpr Member server[] = {
    {"CreateObject", method, "progId", Unknown, "A new object of the registered class."},
    {"Execute", method, "path", Value, "Runs another page and comes back."},
    {"GetLastError", method, "", Unknown, "What went wrong last."},
    {"HTMLEncode", method, "text", Value, "The text with what HTML reserves written as entities."},
    {"MapPath", method, "path", Value, "The file that an address of the server stands for."},
    {"ScriptTimeout", property, "", Value, "Seconds after which a page is ended."},
    {"Transfer", method, "path", Value, "Goes on with another page."},
    {"URLEncode", method, "text", Value, "The text as it can stand in an address."},
    {"URLPathEncode", method, "path", Value, "The path as it can stand in an address."},
};

constexpr Member session[] = {
    {"Abandon", method, "", Value, "Ends the session after this page."},
    {"CodePage", property, "", Value, "The code page of the text that is written."},
    {"Contents", readOnly, "[name]", Unknown, "What scripts have stored."},
    {"LCID", property, "", Value, "The locale of dates, numbers and currency."},
    {"SessionID", readOnly, "", Value, "The number of the session."},
    {"StaticObjects", readOnly, "[name]", Unknown, "Objects declared for the session."},
    {"Timeout", property, "", Value, "Minutes without a request after which the session ends."},
    {"Value", property, "name", Unknown, "What a script has stored under the name."},
};

constexpr Member application[] = {
    {"Contents", readOnly, "[name]", Unknown, "What scripts have stored."},
    {"Lock", method, "", Value, "Keeps other pages from changing what is stored."},
    {"StaticObjects", readOnly, "[name]", Unknown, "Objects declared for the application."},
    {"Unlock", method, "", Value, "Lets other pages change what is stored."},
    {"Value", property, "name", Unknown, "What a script has stored under the name."},
};

constexpr ObjectType types[] = {
    {FileSystemObject, "FileSystemObject", noDefault, fileSystemObject},
    {TextStream, "TextStream", noDefault, textStream},
    {File, "File", withDefault, file},
    {Files, "Files", withDefault, files, File},
    {Folder, "Folder", withDefault, folder},
    {Folders, "Folders", withDefault, folders, Folder},
    {Drive, "Drive", withDefault, drive},
    {Drives, "Drives", withDefault, drives, Drive},
    {Dictionary, "Dictionary", withDefault, dictionary},
    {RegExp, "RegExp", noDefault, regExp},
    {Matches, "Matches", withDefault, matches, Match},
    {Match, "Match", withDefault, match},
    {SubMatches, "SubMatches", withDefault, subMatches, Value},
    {WScript, "WScript", withDefault, wscript},
    {Arguments, "WScript.Arguments", withDefault, arguments, Value},
    {NamedArguments, "WScript.Arguments.Named", withDefault, namedArguments, Value},
    {UnnamedArguments, "WScript.Arguments.Unnamed", withDefault, unnamedArguments, Value},
    {TextInput, "TextStream", noDefault, textInput},
    {TextOutput, "TextStream", noDefault, textOutput},
    {WshShell, "WshShell", noDefault, wshShell},
    {WshNetwork, "WshNetwork", noDefault, wshNetwork},
    {WshShortcut, "WshShortcut", withDefault, wshShortcut},
    {WshEnvironment, "WshEnvironment", withDefault, wshEnvironment, Value},
    {WshExec, "WshExec", noDefault, wshExec},
    {WshSpecialFolders, "WshSpecialFolders", withDefault, wshSpecialFolders, Value},
    {WshCollection, "WshCollection", withDefault, wshCollection, Value},
    {WshController, "WshController", noDefault, wshController},
    {WshRemote, "WshRemote", noDefault, wshRemote},
    {Err, "Err", withDefault, err},
    {Connection, "Connection", withDefault, connection},
    {Recordset, "Recordset", withDefault, recordset, Field},
    {Fields, "Fields", withDefault, fields, Field},
    {Field, "Field", withDefault, field},
    {Command, "Command", withDefault, command},
    {AdoParameters, "Parameters", withDefault, adoParameters, AdoParameter},
    {AdoParameter, "Parameter", withDefault, {}},
    {AdoProperties, "Properties", withDefault, {}},
    {AdoErrors, "Errors", withDefault, {}},
    {Stream, "Stream", noDefault, stream},
    {XmlHttp, "XMLHTTP", noDefault, xmlHttp},
    {ServerXmlHttp, "ServerXMLHTTP", noDefault, xmlHttp},
    {WinHttp, "WinHttpRequest", noDefault, winHttp},
    {DomDocument, "DOMDocument", withDefault, {}},
    {Request, "Request", withDefault, request},
    {Response, "Response", withDefault, response},
    {Server, "Server", withDefault, server},
    {Session, "Session", withDefault, session},
    {Application, "Application", withDefault, application},
    {WmiServices, "WMI services", withDefault, {}},
    {WmiLocator, "WMI locator", withDefault, {}},
    {ShellApplication, "Shell.Application", withDefault, {}},
    {InternetExplorer, "InternetExplorer.Application", withDefault, {}},
    {Excel, "Excel.Application", withDefault, {}},
    {Word, "Word.Application", withDefault, {}},
    {Outlook, "Outlook.Application", withDefault, {}},
    {CdoMessage, "CDO.Message", withDefault, {}},
};

constexpr bool typesFollowTheirIds()
{
    auto expected = static_cast<unsigned>(FileSystemObject);
    return std::ranges::all_of(types, [&](const ObjectType &type) {
        return static_cast<unsigned>(type.id) == expected++ && inAscendingOrder(type.members);
    });
}
static_assert(typesFollowTheirIds());

constexpr ProgId progIdRows[] = {
    {"ADODB.Command", Command},
    {"ADODB.Connection", Connection},
    {"ADODB.Recordset", Recordset},
    {"ADODB.Stream", Stream},
    {"CDO.Message", CdoMessage},
    {"Excel.Application", Excel},
    {"InternetExplorer.Application", InternetExplorer},
    {"Microsoft.XMLDOM", DomDocument},
    {"Microsoft.XMLHTTP", XmlHttp},
    {"MSXML2.DOMDocument", DomDocument},
    {"MSXML2.FreeThreadedDOMDocument", DomDocument},
    {"MSXML2.ServerXMLHTTP", ServerXmlHttp},
    {"MSXML2.XMLHTTP", XmlHttp},
    {"Outlook.Application", Outlook},
    {"Scripting.Dictionary", Dictionary},
    {"Scripting.FileSystemObject", FileSystemObject},
    {"Shell.Application", ShellApplication},
    {"VBScript.RegExp", RegExp},
    {"WbemScripting.SWbemLocator", WmiLocator},
    {"WinHttp.WinHttpRequest", WinHttp},
    {"winmgmts", WmiServices},
    {"Word.Application", Word},
    {"WScript.Network", WshNetwork},
    {"WScript.Shell", WshShell},
    {"WSHController", WshController},
};
static_assert(inAscendingOrder(progIdRows));

constexpr IntrinsicObject intrinsics[] = {{"Err", Err}, {"WScript", WScript}, {"WSH", WScript}};
static_assert(inAscendingOrder(intrinsics));

constexpr IntrinsicObject serverIntrinsics[] = {
    {"Application", Application},
    {"ASPError", Object},
    {"ObjectContext", Object},
    {"Request", Request},
    {"Response", Response},
    {"Server", Server},
    {"Session", Session},
};
static_assert(inAscendingOrder(serverIntrinsics));

TypeId typeIn(std::span<const IntrinsicObject> table, std::string_view name)
{
    const auto *row = findByName(table, name);
    return row ? row->type : Unknown;
}

std::string_view withoutVersion(std::string_view progId)
{
    const auto last = progId.find_last_not_of("0123456789.");
    return last == std::string_view::npos ? progId : progId.substr(0, last + 1);
}

} // namespace

std::span<const ObjectType> objectTypes()
{
    return types;
}

std::span<const ProgId> progIds()
{
    return progIdRows;
}

const ObjectType *objectType(TypeId type)
{
    return type < FileSystemObject
        ? nullptr
        : &types[static_cast<std::size_t>(type) - static_cast<std::size_t>(FileSystemObject)];
}

const Member *memberOf(const ObjectType &type, std::string_view name)
{
    return findByName(type.members, name);
}

TypeId typeOfProgId(std::string_view progId)
{
    const auto *row = findByName<ProgId>(progIdRows, progId);
    if (row == nullptr)
        row = findByName<ProgId>(progIdRows, withoutVersion(progId));
    return row ? row->type : Unknown;
}

TypeId typeOfIntrinsic(std::string_view name)
{
    return typeIn(intrinsics, name);
}

std::span<const IntrinsicObject> intrinsicObjects()
{
    return intrinsics;
}

TypeId typeOfServerIntrinsic(std::string_view name)
{
    return typeIn(serverIntrinsics, name);
}

} // namespace kevra::script
