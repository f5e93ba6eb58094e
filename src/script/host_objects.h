// SPDX-License-Identifier: GPL-3.0-or-later
// The objects that scripts use: the class that a ProgID creates, its members, and what they return.
#pragma once

#include "script/parameters.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace kevra::script {

enum class TypeId : std::uint8_t {
    Unknown, ///< could be anything
    Value, ///< not an object: text, number, date, Boolean
    ArrayOfValues,
    Object, ///< an object of unknown class
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
    Parameters parameters; ///< further arguments index the result
    TypeId result = TypeId::Value;
    std::string_view description;
};

struct ObjectType {
    TypeId id;
    std::string_view name; ///< as users know it
    /// Without one the object cannot be used as a value.
    bool hasDefaultMember;
    std::span<const Member> members; ///< in ascending order of their names
    TypeId element = TypeId::Unknown; ///< of For Each, and of the default member with an index

    /// Whether `members` is complete. A connection also has the stored procedures of its database.
    [[nodiscard]] constexpr bool isComplete() const { return !members.empty() && id != TypeId::Connection; }
};

struct ProgId {
    std::string_view name;
    TypeId type;
};

/// An object that exists without being created.
struct IntrinsicObject {
    std::string_view name;
    TypeId type;
};

/// Null for Unknown, Value, ArrayOfValues and Object.
[[nodiscard]] const ObjectType *objectType(TypeId type);
/// Letters in either case.
[[nodiscard]] const Member *memberOf(const ObjectType &type, std::string_view name);
/// Unknown for an unknown ProgID. Its version suffix (".6.0") is ignored.
[[nodiscard]] TypeId typeOfProgId(std::string_view progId);
/// WScript, WSH and Err.
[[nodiscard]] TypeId typeOfIntrinsic(std::string_view name);
/// Request, Response, ...: in server pages.
[[nodiscard]] TypeId typeOfServerIntrinsic(std::string_view name);

/// In ascending order.
[[nodiscard]] std::span<const ProgId> progIds();
[[nodiscard]] std::span<const IntrinsicObject> intrinsicObjects();

/// For tables that are checked as a whole.
[[nodiscard]] std::span<const ObjectType> objectTypes();

} // namespace kevra::script
