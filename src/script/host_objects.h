// SPDX-License-Identifier: GPL-3.0-or-later
// The objects scripts work with: which class a ProgID makes, what members it has, and what these give back.
#pragma once

#include "script/parameters.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace kevra::script {

enum class TypeId : std::uint8_t {
    Unknown, ///< could be anything
    Value, ///< no object: text, number, date, truth value
    ArrayOfValues,
    Object, ///< an object nothing else is known about
    // Files.
    FileSystemObject,
    TextStream,
    File,
    Files,
    Folder,
    Folders,
    Drive,
    Drives,
    Dictionary,
    RegExp,
    Matches,
    Match,
    SubMatches,
    // The script host.
    WScript,
    Arguments,
    NamedArguments,
    UnnamedArguments,
    TextInput,
    TextOutput,
    WshShell,
    WshNetwork,
    WshShortcut,
    WshEnvironment,
    WshExec,
    WshSpecialFolders,
    WshCollection,
    WshController,
    WshRemote,
    Err,
    // Data.
    Connection,
    Recordset,
    Fields,
    Field,
    Command,
    AdoParameters,
    AdoParameter,
    AdoProperties,
    AdoErrors,
    Stream,
    // The web.
    XmlHttp,
    ServerXmlHttp,
    WinHttp,
    DomDocument,
    // A server's pages.
    Request,
    Response,
    Server,
    Session,
    Application,
    // Known by name only: their members are not listed.
    WmiServices,
    WmiLocator,
    ShellApplication,
    InternetExplorer,
    Excel,
    Word,
    Outlook,
    CdoMessage,
};

enum class MemberKind : std::uint8_t {
    Method,
    Property, ///< read and written
    ReadOnly,
    WriteOnly,
};

struct Member {
    std::string_view name;
    MemberKind kind;
    Parameters parameters; ///< arguments beyond these are an index into the result
    TypeId result = TypeId::Value;
    std::string_view description;
};

struct ObjectType {
    TypeId id;
    std::string_view name; ///< as users know it
    /// Without one the object itself can never stand for a value.
    bool hasDefaultMember;
    std::span<const Member> members; ///< in ascending order of their names
    TypeId element = TypeId::Unknown; ///< what For Each gives and the default member takes an index for

    /// Whether `members` are all there are. A connection has the stored procedures of its database as well.
    [[nodiscard]] constexpr bool isComplete() const { return !members.empty() && id != TypeId::Connection; }
};

struct ProgId {
    std::string_view name;
    TypeId type;
};

/// An object that is there without being made.
struct IntrinsicObject {
    std::string_view name;
    TypeId type;
};

/// Null for what is no known class: Unknown, Value, ArrayOfValues, Object.
[[nodiscard]] const ObjectType *objectType(TypeId type);
/// Letters in either case.
[[nodiscard]] const Member *memberOf(const ObjectType &type, std::string_view name);
/// Unknown where the ProgID is. A version at its end (".6.0") may be missing or another one.
[[nodiscard]] TypeId typeOfProgId(std::string_view progId);
/// WScript, WSH and Err.
[[nodiscard]] TypeId typeOfIntrinsic(std::string_view name);
/// Request, Response, ...: of a server's page.
[[nodiscard]] TypeId typeOfServerIntrinsic(std::string_view name);

/// In ascending order.
[[nodiscard]] std::span<const ProgId> progIds();
[[nodiscard]] std::span<const IntrinsicObject> intrinsicObjects();

/// For tables that are checked as a whole.
[[nodiscard]] std::span<const ObjectType> objectTypes();

} // namespace kevra::script
