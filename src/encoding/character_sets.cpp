// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/character_sets.h"

#include "text/words.h"

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::array sets{
    CharacterSet{Encoding::Windows1252, "Windows-1252", ScriptGroup::Western, Form::SingleByte, "", 1252,
        "windows-1252 ansi_x3.4-1968 ascii cp1252 cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 "
        "iso88591 iso_8859-1 iso_8859-1:1987 l1 latin1 us-ascii x-cp1252"},
    CharacterSet{Encoding::Utf8, "UTF-8", ScriptGroup::Unicode, Form::Utf8, "", 65001,
        "utf-8 unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf8 x-unicode20utf8"},
    CharacterSet{Encoding::Utf16Le, "UTF-16", ScriptGroup::Unicode, Form::Wide, "UTF-16LE", 1200,
        "utf-16le csunicode iso-10646-ucs-2 ucs-2 unicode unicodefeff utf-16"},
    CharacterSet{Encoding::Utf16Be, "UTF-16 big-endian", ScriptGroup::Unicode, Form::Wide, "UTF-16BE", 1201,
        "utf-16be unicodefffe"},
    CharacterSet{
        Encoding::Utf32Le, "UTF-32", ScriptGroup::Unicode, Form::Wide, "UTF-32LE", 12000, "utf-32le utf-32"},
    CharacterSet{Encoding::Utf32Be, "UTF-32 big-endian", ScriptGroup::Unicode, Form::Wide, "UTF-32BE", 12001,
        "utf-32be"},
    CharacterSet{Encoding::Iso8859_15, "ISO-8859-15", ScriptGroup::Western, Form::SingleByte, "ISO-8859-15",
        28605, "iso-8859-15 csisolatin9 iso8859-15 iso885915 iso_8859-15 l9"},
    CharacterSet{Encoding::Macintosh, "Macintosh", ScriptGroup::Western, Form::SingleByte, "MACINTOSH", 10000,
        "macintosh csmacintosh mac x-mac-roman"},
    CharacterSet{Encoding::Iso8859_14, "ISO-8859-14", ScriptGroup::Western, Form::SingleByte, "ISO-8859-14",
        0, "iso-8859-14 iso8859-14 iso885914"},
    CharacterSet{Encoding::Iso8859_10, "ISO-8859-10", ScriptGroup::Western, Form::SingleByte, "ISO-8859-10",
        0, "iso-8859-10 csisolatin6 iso-ir-157 iso8859-10 iso885910 l6 latin6"},
    CharacterSet{Encoding::Windows1250, "Windows-1250", ScriptGroup::CentralEuropean, Form::SingleByte,
        "CP1250", 1250, "windows-1250 cp1250 x-cp1250"},
    CharacterSet{Encoding::Iso8859_2, "ISO-8859-2", ScriptGroup::CentralEuropean, Form::SingleByte,
        "ISO-8859-2", 28592,
        "iso-8859-2 csisolatin2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 latin2"},
    CharacterSet{Encoding::Iso8859_16, "ISO-8859-16", ScriptGroup::CentralEuropean, Form::SingleByte,
        "ISO-8859-16", 0, "iso-8859-16"},
    CharacterSet{Encoding::Windows1257, "Windows-1257", ScriptGroup::Baltic, Form::SingleByte, "CP1257", 1257,
        "windows-1257 cp1257 x-cp1257"},
    CharacterSet{Encoding::Iso8859_4, "ISO-8859-4", ScriptGroup::Baltic, Form::SingleByte, "ISO-8859-4",
        28594, "iso-8859-4 csisolatin4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 latin4"},
    CharacterSet{Encoding::Iso8859_13, "ISO-8859-13", ScriptGroup::Baltic, Form::SingleByte, "ISO-8859-13",
        28603, "iso-8859-13 iso8859-13 iso885913"},
    CharacterSet{Encoding::Windows1254, "Windows-1254", ScriptGroup::Turkish, Form::SingleByte, "CP1254",
        1254,
        "windows-1254 cp1254 csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 "
        "l5 latin5 x-cp1254"},
    CharacterSet{Encoding::Iso8859_3, "ISO-8859-3", ScriptGroup::Turkish, Form::SingleByte, "ISO-8859-3",
        28593, "iso-8859-3 csisolatin3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 latin3"},
    CharacterSet{Encoding::Windows1251, "Windows-1251", ScriptGroup::Cyrillic, Form::SingleByte, "CP1251",
        1251, "windows-1251 cp1251 x-cp1251"},
    CharacterSet{Encoding::Koi8R, "KOI8-R", ScriptGroup::Cyrillic, Form::SingleByte, "KOI8-R", 20866,
        "koi8-r cskoi8r koi koi8 koi8_r"},
    CharacterSet{Encoding::Koi8U, "KOI8-U", ScriptGroup::Cyrillic, Form::SingleByte, "KOI8-U", 21866,
        "koi8-u koi8-ru"},
    CharacterSet{Encoding::Iso8859_5, "ISO-8859-5", ScriptGroup::Cyrillic, Form::SingleByte, "ISO-8859-5",
        28595,
        "iso-8859-5 csisolatincyrillic cyrillic iso-ir-144 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988"},
    CharacterSet{Encoding::Ibm866, "IBM866", ScriptGroup::Cyrillic, Form::SingleByte, "IBM866", 866,
        "ibm866 866 cp866 csibm866"},
    CharacterSet{Encoding::MacCyrillic, "Mac Cyrillic", ScriptGroup::Cyrillic, Form::SingleByte, "MAC-UK",
        10007, "x-mac-cyrillic x-mac-ukrainian"},
    CharacterSet{Encoding::Windows1253, "Windows-1253", ScriptGroup::Greek, Form::SingleByte, "CP1253", 1253,
        "windows-1253 cp1253 x-cp1253"},
    CharacterSet{Encoding::Iso8859_7, "ISO-8859-7", ScriptGroup::Greek, Form::SingleByte, "ISO-8859-7", 28597,
        "iso-8859-7 csisolatingreek ecma-118 elot_928 greek greek8 iso-ir-126 iso8859-7 iso88597 iso_8859-7 "
        "iso_8859-7:1987 sun_eu_greek"},
    CharacterSet{Encoding::Windows1255, "Windows-1255", ScriptGroup::Hebrew, Form::SingleByte, "CP1255", 1255,
        "windows-1255 cp1255 x-cp1255"},
    CharacterSet{Encoding::Iso8859_8, "ISO-8859-8", ScriptGroup::Hebrew, Form::SingleByte, "ISO-8859-8",
        28598,
        "iso-8859-8 csiso88598e csisolatinhebrew hebrew iso-8859-8-e iso-ir-138 iso8859-8 iso88598 "
        "iso_8859-8 iso_8859-8:1988 visual"},
    CharacterSet{Encoding::Iso8859_8I, "ISO-8859-8-I", ScriptGroup::Hebrew, Form::SingleByte, "ISO-8859-8",
        38598, "iso-8859-8-i csiso88598i logical"},
    CharacterSet{Encoding::Windows1256, "Windows-1256", ScriptGroup::Arabic, Form::SingleByte, "CP1256", 1256,
        "windows-1256 cp1256 x-cp1256"},
    CharacterSet{Encoding::Iso8859_6, "ISO-8859-6", ScriptGroup::Arabic, Form::SingleByte, "ISO-8859-6",
        28596,
        "iso-8859-6 arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6-e "
        "iso-8859-6-i iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987"},
    CharacterSet{Encoding::Windows874, "Windows-874", ScriptGroup::Thai, Form::SingleByte, "CP874", 874,
        "windows-874 dos-874 iso-8859-11 iso8859-11 iso885911 tis-620"},
    CharacterSet{Encoding::Windows1258, "Windows-1258", ScriptGroup::Vietnamese, Form::SingleByte, "CP1258",
        1258, "windows-1258 cp1258 x-cp1258"},
    CharacterSet{Encoding::Gb18030, "GB18030", ScriptGroup::SimplifiedChinese, Form::MultiByte, "GB18030",
        54936, "gb18030"},
    CharacterSet{Encoding::Gbk, "GBK", ScriptGroup::SimplifiedChinese, Form::MultiByte, "GBK", 936,
        "gbk chinese csgb2312 csiso58gb231280 gb2312 gb_2312 gb_2312-80 iso-ir-58 x-gbk"},
    CharacterSet{Encoding::Big5, "Big5", ScriptGroup::TraditionalChinese, Form::MultiByte, "BIG5-HKSCS", 950,
        "big5 big5-hkscs cn-big5 csbig5 x-x-big5"},
    CharacterSet{Encoding::ShiftJis, "Shift_JIS", ScriptGroup::Japanese, Form::MultiByte, "CP932", 932,
        "shift_jis csshiftjis ms_kanji shift-jis sjis windows-31j x-sjis"},
    CharacterSet{Encoding::EucJp, "EUC-JP", ScriptGroup::Japanese, Form::MultiByte, "EUC-JP-MS", 51932,
        "euc-jp cseucpkdfmtjapanese x-euc-jp"},
    CharacterSet{Encoding::Iso2022Jp, "ISO-2022-JP", ScriptGroup::Japanese, Form::Shifting, "ISO-2022-JP",
        50220, "iso-2022-jp csiso2022jp"},
    CharacterSet{Encoding::EucKr, "EUC-KR", ScriptGroup::Korean, Form::MultiByte, "UHC", 949,
        "euc-kr cseuckr csksc56011987 iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 "
        "windows-949"},
    CharacterSet{Encoding::UserDefined, "x-user-defined", ScriptGroup::Other, Form::SingleByte, "", 0,
        "x-user-defined"},
};

constexpr bool inOrder()
{
    for (std::size_t i = 0; i < sets.size(); ++i)
        if (static_cast<std::size_t>(sets[i].encoding) != i)
            return false;
    return true;
}
static_assert(inOrder());

constexpr std::array<std::string_view, 16> groupNames{"Unicode", "Western", "Central European", "Baltic",
    "Turkish, South European", "Cyrillic", "Greek", "Hebrew", "Arabic", "Thai", "Vietnamese",
    "Chinese, simplified", "Chinese, traditional", "Japanese", "Korean", "Other"};

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n\f";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool hasLabel(std::string_view labels, std::string_view label)
{
    while (!labels.empty()) {
        const auto end = std::min(labels.find(' '), labels.size());
        if (equalIgnoringCase(labels.substr(0, end), label))
            return true;
        labels.remove_prefix(std::min(end + 1, labels.size()));
    }
    return false;
}

} // namespace

std::span<const CharacterSet> characterSets()
{
    return sets;
}

const CharacterSet &characterSet(Encoding encoding)
{
    return sets[static_cast<std::size_t>(encoding)];
}

std::optional<Encoding> encodingNamed(std::string_view label)
{
    label = trimmed(label);
    const auto set = std::ranges::find_if(sets, [&](const auto &row) { return hasLabel(row.labels, label); });
    return set == sets.end() ? std::nullopt : std::optional(set->encoding);
}

std::optional<Encoding> encodingOfCodePage(int number)
{
    if (number == 28591 || number == 20127)
        return Encoding::Windows1252;
    const auto set
        = std::ranges::find_if(sets, [&](const auto &row) { return number != 0 && row.codePage == number; });
    return set == sets.end() ? std::nullopt : std::optional(set->encoding);
}

std::string_view labelOf(Encoding encoding)
{
    const auto labels = characterSet(encoding).labels;
    return labels.substr(0, labels.find(' '));
}

std::string_view groupName(ScriptGroup group)
{
    return groupNames[static_cast<std::size_t>(group)];
}

int unitSize(Encoding encoding)
{
    if (characterSet(encoding).form != Form::Wide)
        return 1;
    return encoding == Encoding::Utf16Le || encoding == Encoding::Utf16Be ? 2 : 4;
}

} // namespace kevra
