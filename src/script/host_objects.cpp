// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/host_objects.h"

#include "script/ado_objects.h"
#include "script/scripting_objects.h"
#include "script/sorted_names.h"
#include "script/web_objects.h"
#include "script/wsh_objects.h"

namespace kevra::script {
namespace {

using namespace host_members;

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
