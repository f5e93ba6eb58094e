// SPDX-License-Identifier: GPL-3.0-or-later
// The character sets that can be read and written: those of the WHATWG Encoding Standard, and UTF-32.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kevra {

enum class Encoding : std::uint8_t {
    Windows1252,
    Utf8,
    Utf16Le,
    Utf16Be,
    Utf32Le,
    Utf32Be,
    Iso8859_15,
    Macintosh,
    Iso8859_14,
    Iso8859_10,
    Windows1250,
    Iso8859_2,
    Iso8859_16,
    Windows1257,
    Iso8859_4,
    Iso8859_13,
    Windows1254,
    Iso8859_3,
    Windows1251,
    Koi8R,
    Koi8U,
    Iso8859_5,
    Ibm866,
    MacCyrillic,
    Windows1253,
    Iso8859_7,
    Windows1255,
    Iso8859_8,
    Iso8859_8I,
    Windows1256,
    Iso8859_6,
    Windows874,
    Windows1258,
    Gb18030,
    Gbk,
    Big5,
    ShiftJis,
    EucJp,
    Iso2022Jp,
    EucKr,
    UserDefined,
};

/// The groups in which the sets are shown to the user.
enum class ScriptGroup {
    Unicode,
    Western,
    CentralEuropean,
    Baltic,
    Turkish,
    Cyrillic,
    Greek,
    Hebrew,
    Arabic,
    Thai,
    Vietnamese,
    SimplifiedChinese,
    TraditionalChinese,
    Japanese,
    Korean,
    Other
};

/// How a set encodes its characters.
enum class Form {
    SingleByte,
    Utf8,
    Wide, ///< units of two or four bytes
    MultiByte, ///< ASCII as it is, other characters in one to four bytes
    Shifting, ///< escape sequences change the meaning of the bytes that follow
};

struct CharacterSet {
    Encoding encoding;
    std::string_view name; ///< shown to the user
    ScriptGroup group;
    Form form;
    std::string_view libraryName; ///< empty if no library is used
    int codePage; ///< as ASP and Windows number it; 0 for none
    std::string_view
        labels; ///< the names used in files, lower case, separated by blanks; the first is written
};

/// In the order of the enumeration.
[[nodiscard]] std::span<const CharacterSet> characterSets();
[[nodiscard]] const CharacterSet &characterSet(Encoding encoding);
/// Finds a set by any of its labels; ignores case and surrounding blanks.
[[nodiscard]] std::optional<Encoding> encodingNamed(std::string_view label);
[[nodiscard]] std::optional<Encoding> encodingOfCodePage(int number);
/// The label to write into files.
[[nodiscard]] std::string_view labelOf(Encoding encoding);
[[nodiscard]] std::string_view groupName(ScriptGroup group); ///< "Central European"

/// The number of bytes in the smallest unit of the set: 1, 2 or 4.
[[nodiscard]] int unitSize(Encoding encoding);
[[nodiscard]] inline bool isUnicode(Encoding encoding)
{
    return characterSet(encoding).group == ScriptGroup::Unicode;
}

} // namespace kevra
