// SPDX-License-Identifier: GPL-3.0-or-later
// The tokens of VBScript. Positions are byte offsets in the text that holds the script.
#pragma once

#include <cstdint>

namespace kevra::script {

/// Identifies a name: names that differ only in case have equal ids. See names.h.
enum class NameId : std::uint32_t { None = 0 };

/// Each keyword is also the NameId of the same value. Some are keywords only in context: see isReserved().
enum class Keyword : std::uint8_t {
    None,
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    End,
    Eqv,
    Exit,
    False,
    For,
    Function,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Me,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Private,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    WEnd,
    While,
    With,
    Xor,
    // Usable as names outside of their statement.
    As,
    Default,
    Erase,
    Error,
    Explicit,
    Get,
    Optional,
    ParamArray,
    Preserve,
    Property,
    Step,
    // Not VBScript: known so that the message can explain the error.
    AddressOf,
    AndAlso,
    Catch,
    EndIf,
    GoSub,
    Like,
    Namespace,
    OrElse,
    Return,
    Static,
    Try,
    TypeOf,
};
inline constexpr auto firstFreeKeyword = Keyword::As;
inline constexpr auto lastKeyword = Keyword::TypeOf;

/// Can never be a name, except after a dot or in brackets.
[[nodiscard]] constexpr bool isReserved(Keyword keyword)
{
    return keyword != Keyword::None && keyword < firstFreeKeyword;
}

enum class TokenKind : std::uint8_t {
    End, ///< of the text
    UnitEnd, ///< between compilation units of a page
    OutputStart, ///< before the expression of <%= %>
    NewLine, ///< also between pieces of script
    Colon,
    Name, ///< also every keyword, see Token::keyword()
    Number,
    String, ///< with its quotation marks
    Date, ///< with its number signs
    LeftParenthesis,
    RightParenthesis,
    Comma,
    Dot,
    Equal,
    Less,
    Greater,
    LessEqual, ///< <= or =<
    GreaterEqual, ///< >= or =>
    NotEqual, ///< <> or ><
    Plus,
    Minus,
    Multiply,
    Divide,
    IntegerDivide,
    Power,
    Ampersand,
    Invalid, ///< an unknown character, or the start of something unclosed
};

struct Token {
    TokenKind kind = TokenKind::End;
    bool plain = true; ///< false: in brackets or after a dot, so never a keyword
    bool unclosed = false; ///< a string, date or bracketed name that ends with its line
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    NameId name = NameId::None; ///< of a Name

    [[nodiscard]] constexpr Keyword keyword() const
    {
        return plain && name <= static_cast<NameId>(lastKeyword) ? static_cast<Keyword>(name) : Keyword::None;
    }
};

} // namespace kevra::script
