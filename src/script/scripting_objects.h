// SPDX-License-Identifier: GPL-3.0-or-later
// Members of the objects for files, dictionaries and regular expressions. Rows for host_objects.cpp, each
// table in ascending order of names.
#pragma once

#include "script/host_members.h"

namespace kevra::script::host_members {

inline constexpr Member fileSystemObject[] = {
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

inline constexpr Member textStream[] = {
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

inline constexpr Member file[] = {
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

inline constexpr Member files[] = {
    {"Count", readOnly, "", Value, "How many files there are."},
    {"Item", readOnly, "name", File, "The file of this name."},
};

inline constexpr Member folder[] = {
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

inline constexpr Member folders[] = {
    {"Add", method, "name", Folder, "Makes a folder."},
    {"Count", readOnly, "", Value, "How many folders there are."},
    {"Item", readOnly, "name", Folder, "The folder of this name."},
};

inline constexpr Member drive[] = {
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

inline constexpr Member drives[] = {
    {"Count", readOnly, "", Value, "How many drives there are."},
    {"Item", readOnly, "drive", Drive, "The drive of this letter."},
};

inline constexpr Member dictionary[] = {
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

inline constexpr Member regExp[] = {
    {"Execute", method, "text", Matches, "All matches in a text, or the first if Global is False."},
    {"Global", property, "", Value, "Whether all matches count."},
    {"IgnoreCase", property, "", Value, "Whether capitals count as small letters."},
    {"Multiline", property, "", Value, "Whether ^ and $ match at line ends."},
    {"Pattern", property, "", Value, "The regular expression."},
    {"Replace", method, "text, replacement", Value, "The text with its matches replaced; $1 is a group."},
    {"Test", method, "text", Value, "Whether the text has a match."},
};

inline constexpr Member matches[] = {
    {"Count", readOnly, "", Value, "How many matches there are."},
    {"Item", readOnly, "index", Match, "A match, from 0."},
};

inline constexpr Member match[] = {
    {"FirstIndex", readOnly, "", Value, "Where it starts, from 0."},
    {"Length", readOnly, "", Value, "How long it is."},
    {"SubMatches", readOnly, "", SubMatches, "What the groups matched."},
    {"Value", readOnly, "", Value, "The text that matched."},
};

inline constexpr Member subMatches[] = {
    {"Count", readOnly, "", Value, "How many groups there are."},
    {"Item", readOnly, "index", Value, "What a group matched, from 0."},
};

} // namespace kevra::script::host_members
