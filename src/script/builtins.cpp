// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/builtins.h"

#include "script/sorted_names.h"

namespace kevra::script {
namespace {

using enum TypeId;

constexpr BuiltinFunction functions[] = {
    {"Abs", "number", Value, "The number without its sign."},
    {"Array", "[value...]", ArrayOfValues, "An array of the values, its first index 0."},
    {"Asc", "text", Value, "The code of the first character in the system's code page."},
    {"AscB", "text", Value, "The first byte of the text."},
    {"AscW", "text", Value, "The Unicode code of the first character, -32768 to 32767."},
    {"Atn", "number", Value, "The angle, in radians, with this tangent."},
    {"CBool", "value", Value, "The value as True or False."},
    {"CByte", "value", Value, "The value as a number from 0 to 255."},
    {"CCur", "value", Value, "The value as a number with four exact decimals."},
    {"CDate", "value", Value, "The value as a date and time."},
    {"CDbl", "value", Value, "The value as a floating-point number."},
    {"Chr", "code", Value, "The character with this code in the system's code page."},
    {"ChrB", "code", Value, "A text of this one byte."},
    {"ChrW", "code", Value, "The character with this Unicode code."},
    {"CInt", "value", Value, "The value rounded to a whole number from -32768 to 32767."},
    {"CLng", "value", Value, "The value rounded to a 32-bit whole number."},
    {"Cos", "angle", Value, "The cosine of an angle in radians."},
    {"CreateObject", "progId, [server]", Unknown, "A new object of the registered class."},
    {"CSng", "value", Value, "The value as a single-precision number."},
    {"CStr", "value", Value, "The value as text."},
    {"Date", "", Value, "Today's date."},
    {"DateAdd", "interval, number, date", Value,
        "The date that many intervals later (\"d\" days, \"m\" months, ...)."},
    {"DateDiff", "interval, from, to, [firstDayOfWeek], [firstWeekOfYear]", Value,
        "How many interval boundaries lie between two dates."},
    {"DatePart", "interval, date, [firstDayOfWeek], [firstWeekOfYear]", Value,
        "One part of a date, as a number."},
    {"DateSerial", "year, month, day", Value,
        "The date of these three numbers; what is out of range carries over."},
    {"DateValue", "text", Value, "The date in a text, without the time."},
    {"Day", "date", Value, "The day of the month, 1 to 31."},
    {"Erase", "array, [array...]", Value, "Empties fixed arrays and frees dynamic ones."},
    {"Escape", "text", Value, "The text with everything but letters and digits as %XX."},
    {"Eval", "text", Unknown, "The value of an expression given as text."},
    {"Execute", "statements", Unknown, "Runs statements given as text, in the current scope."},
    {"ExecuteGlobal", "statements", Unknown, "Runs statements given as text, in the global scope."},
    {"Exp", "number", Value, "e to the power of the number."},
    {"Filter", "texts, find, [include], [compare]", ArrayOfValues,
        "The elements that contain a text, or that do not."},
    {"Fix", "number", Value, "The whole part of the number; -2.5 becomes -2."},
    {"FormatCurrency", "number, [digits], [leadingZero], [parentheses], [groups]", Value,
        "The number as an amount of money, by the system's settings."},
    {"FormatDateTime", "date, [format]", Value, "The date as text, by the system's settings."},
    {"FormatNumber", "number, [digits], [leadingZero], [parentheses], [groups]", Value,
        "The number as text, by the system's settings."},
    {"FormatPercent", "number, [digits], [leadingZero], [parentheses], [groups]", Value,
        "The number times 100 with a percent sign."},
    {"GetLocale", "", Value, "The number of the current locale."},
    {"GetObject", "[path], [progId]", Unknown, "A running object, or the object of a file or moniker."},
    {"GetRef", "procedure", Object, "A reference to a procedure, for an event."},
    {"GetUILanguage", "", Value, "The number of the user interface's language."},
    {"Hex", "number", Value, "The number in base 16."},
    {"Hour", "time", Value, "The hour, 0 to 23."},
    {"InputBox", "prompt, [title], [default], [x], [y], [helpFile], [context]", Value,
        "Asks the user for a text; empty when cancelled."},
    {"InStr", "[start], text, find, [compare]", Value,
        "Where a text first occurs in another, from 1; 0 if nowhere."},
    {"InStrB", "[start], text, find, [compare]", Value, "InStr by bytes."},
    {"InStrRev", "text, find, [start], [compare]", Value,
        "Where a text last occurs in another, from 1; 0 if nowhere."},
    {"Int", "number", Value, "The largest whole number not above it; -2.5 becomes -3."},
    {"IsArray", "value", Value, "True for an array."},
    {"IsDate", "value", Value, "True if CDate can convert the value."},
    {"IsEmpty", "value", Value, "True for a variable that was never assigned."},
    {"IsNull", "value", Value, "True for Null, which no comparison finds."},
    {"IsNumeric", "value", Value, "True if the value can be converted to a number."},
    {"IsObject", "value", Value, "True for an object, Nothing included."},
    {"Join", "texts, [delimiter]", Value, "The elements of an array as one text, a blank between them."},
    {"LBound", "array, [dimension]", Value, "The lowest index, which is 0."},
    {"LCase", "text", Value, "The text in lower case."},
    {"Left", "text, length", Value, "The first characters of the text."},
    {"LeftB", "text, length", Value, "The first bytes of the text."},
    {"Len", "text", Value, "The number of characters."},
    {"LenB", "text", Value, "The number of bytes."},
    {"LoadPicture", "path", Object, "A picture from a file."},
    {"Log", "number", Value, "The natural logarithm."},
    {"LTrim", "text", Value, "The text without blanks at its start."},
    {"Mid", "text, start, [length]", Value, "Characters from a position, counted from 1."},
    {"MidB", "text, start, [length]", Value, "Bytes from a position, counted from 1."},
    {"Minute", "time", Value, "The minute, 0 to 59."},
    {"Month", "date", Value, "The month, 1 to 12."},
    {"MonthName", "month, [abbreviate]", Value, "The month's name in the system's language."},
    {"MsgBox", "prompt, [buttons], [title], [helpFile], [context]", Value,
        "Shows a message and returns the button that was chosen."},
    {"Now", "", Value, "The current date and time."},
    {"Oct", "number", Value, "The number in base 8."},
    {"Randomize", "[seed]", Value, "Starts the random numbers anew, from the clock if no seed is given."},
    {"Replace", "text, find, replacement, [start], [count], [compare]", Value,
        "The text with one string replaced by another."},
    {"RGB", "red, green, blue", Value, "The number of a colour from three parts of 0 to 255."},
    {"Right", "text, length", Value, "The last characters of the text."},
    {"RightB", "text, length", Value, "The last bytes of the text."},
    {"Rnd", "[number]", Value, "A random number from 0 to less than 1."},
    {"Round", "number, [digits]", Value, "The number rounded; halves go to the even neighbour."},
    {"RTrim", "text", Value, "The text without blanks at its end."},
    {"ScriptEngine", "", Value, "\"VBScript\"."},
    {"ScriptEngineBuildVersion", "", Value, "The engine's build number."},
    {"ScriptEngineMajorVersion", "", Value, "The engine's major version."},
    {"ScriptEngineMinorVersion", "", Value, "The engine's minor version."},
    {"Second", "time", Value, "The second, 0 to 59."},
    {"SetLocale", "[locale]", Value, "Changes the locale and returns the one before."},
    {"Sgn", "number", Value, "-1, 0 or 1, by the number's sign."},
    {"Sin", "angle", Value, "The sine of an angle in radians."},
    {"Space", "length", Value, "That many blanks."},
    {"Split", "text, [delimiter], [count], [compare]", ArrayOfValues,
        "The parts of a text between delimiters."},
    {"Sqr", "number", Value, "The square root."},
    {"StrComp", "first, second, [compare]", Value, "-1, 0 or 1, by the order of two texts."},
    {"String", "length, character", Value, "One character that many times."},
    {"StrReverse", "text", Value, "The text backwards."},
    {"Tan", "angle", Value, "The tangent of an angle in radians."},
    {"Time", "", Value, "The current time."},
    {"Timer", "", Value, "The seconds since midnight."},
    {"TimeSerial", "hour, minute, second", Value,
        "The time of these three numbers; what is out of range carries over."},
    {"TimeValue", "text", Value, "The time in a text, without the date."},
    {"Trim", "text", Value, "The text without blanks at both ends."},
    {"TypeName", "value", Value, "The name of the value's type, such as \"String\"."},
    {"UBound", "array, [dimension]", Value, "The highest index; -1 for an empty array."},
    {"UCase", "text", Value, "The text in upper case."},
    {"Unescape", "text", Value, "The text with %XX back as characters."},
    {"VarType", "value", Value, "The number of the value's type, such as vbString."},
    {"Weekday", "date, [firstDayOfWeek]", Value, "The day of the week, 1 for Sunday unless told otherwise."},
    {"WeekdayName", "weekday, [abbreviate], [firstDayOfWeek]", Value,
        "The weekday's name in the system's language."},
    {"Year", "date", Value, "The year."},
};

constexpr BuiltinConstant constants[] = {
    {"vbAbort", "3"},
    {"vbAbortRetryIgnore", "2"},
    {"vbApplicationModal", "0"},
    {"vbArray", "8192"},
    {"vbBinaryCompare", "0"},
    {"vbBlack", "&H0"},
    {"vbBlue", "&HFF0000"},
    {"vbBoolean", "11"},
    {"vbByte", "17"},
    {"vbCancel", "2"},
    {"vbCr", "Chr(13)"},
    {"vbCritical", "16"},
    {"vbCrLf", "Chr(13) & Chr(10)"},
    {"vbCurrency", "6"},
    {"vbCyan", "&HFFFF00"},
    {"vbDatabaseCompare", "2"},
    {"vbDataObject", "13"},
    {"vbDate", "7"},
    {"vbDecimal", "14"},
    {"vbDefaultButton1", "0"},
    {"vbDefaultButton2", "256"},
    {"vbDefaultButton3", "512"},
    {"vbDefaultButton4", "768"},
    {"vbDouble", "5"},
    {"vbEmpty", "0"},
    {"vbError", "10"},
    {"vbExclamation", "48"},
    {"vbFalse", "0"},
    {"vbFirstFourDays", "2"},
    {"vbFirstFullWeek", "3"},
    {"vbFirstJan1", "1"},
    {"vbFormFeed", "Chr(12)"},
    {"vbFriday", "6"},
    {"vbGeneralDate", "0"},
    {"vbGreen", "&HFF00"},
    {"vbIgnore", "5"},
    {"vbInformation", "64"},
    {"vbInteger", "2"},
    {"vbLf", "Chr(10)"},
    {"vbLong", "3"},
    {"vbLongDate", "1"},
    {"vbLongTime", "3"},
    {"vbMagenta", "&HFF00FF"},
    {"vbMonday", "2"},
    {"vbMsgBoxHelpButton", "16384"},
    {"vbMsgBoxRight", "524288"},
    {"vbMsgBoxRtlReading", "1048576"},
    {"vbMsgBoxSetForeground", "65536"},
    {"vbNewLine", "Chr(13) & Chr(10)"},
    {"vbNo", "7"},
    {"vbNull", "1"},
    {"vbNullChar", "Chr(0)"},
    {"vbNullString", "\"\""},
    {"vbObject", "9"},
    {"vbObjectError", "&H80040000"},
    {"vbOK", "1"},
    {"vbOKCancel", "1"},
    {"vbOKOnly", "0"},
    {"vbQuestion", "32"},
    {"vbRed", "&HFF"},
    {"vbRetry", "4"},
    {"vbRetryCancel", "5"},
    {"vbSaturday", "7"},
    {"vbShortDate", "2"},
    {"vbShortTime", "4"},
    {"vbSingle", "4"},
    {"vbString", "8"},
    {"vbSunday", "1"},
    {"vbSystemModal", "4096"},
    {"vbTab", "Chr(9)"},
    {"vbTextCompare", "1"},
    {"vbThursday", "5"},
    {"vbTrue", "-1"},
    {"vbTuesday", "3"},
    {"vbUseDefault", "-2"},
    {"vbUseSystem", "0"},
    {"vbUseSystemDayOfWeek", "0"},
    {"vbVariant", "12"},
    {"vbVerticalTab", "Chr(11)"},
    {"vbWednesday", "4"},
    {"vbWhite", "&HFFFFFF"},
    {"vbYellow", "&HFFFF"},
    {"vbYes", "6"},
    {"vbYesNo", "4"},
    {"vbYesNoCancel", "3"},
};

static_assert(inAscendingOrder(functions));
static_assert(inAscendingOrder(constants));

} // namespace

std::span<const BuiltinFunction> builtinFunctions()
{
    return functions;
}

std::span<const BuiltinConstant> builtinConstants()
{
    return constants;
}

const BuiltinFunction *builtinFunction(std::string_view name)
{
    return findByName<BuiltinFunction>(functions, name);
}

const BuiltinConstant *builtinConstant(std::string_view name)
{
    return findByName<BuiltinConstant>(constants, name);
}

BuiltinNames::BuiltinNames(const NameTable &names)
    : m_rows(names.size())
{
    std::size_t row = 0;
    for (const auto &function : functions)
        add(names, function.name, ++row);
    for (const auto &constant : constants)
        add(names, constant.name, ++row);
    for (const auto &object : intrinsicObjects())
        add(names, object.name, ++row);
}

void BuiltinNames::add(const NameTable &names, std::string_view name, std::size_t row)
{
    const auto id = names.find(name);
    if (id != NameId::None)
        m_rows[static_cast<std::size_t>(id)] = static_cast<std::uint16_t>(row);
}

const BuiltinFunction *BuiltinNames::function(NameId name) const
{
    const std::size_t row = m_rows[static_cast<std::size_t>(name)];
    return row != 0 && row <= std::size(functions) ? &functions[row - 1] : nullptr;
}

const BuiltinConstant *BuiltinNames::constant(NameId name) const
{
    const std::size_t row = m_rows[static_cast<std::size_t>(name)];
    const bool isConstant = row > std::size(functions) && row <= std::size(functions) + std::size(constants);
    return isConstant ? &constants[row - 1 - std::size(functions)] : nullptr;
}

} // namespace kevra::script
