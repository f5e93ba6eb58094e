// SPDX-License-Identifier: GPL-3.0-or-later
// Every rule of the analysis, with the paragraph that explains it. The table is in rules.cpp.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kevra::script {

enum class Level : std::uint8_t {
    Error, ///< the script does not compile, or the statement must fail
    Warning, ///< almost certainly unintended
    Hint,
};

/// The value is the number in the code: KV1001.
enum class Rule : std::uint16_t {
    // Syntax errors: found by lexer and parser.
    SyntaxError = 1001,
    UnclosedString,
    InvalidCharacter,
    InvalidNumber,
    InvalidDate,
    MissingParenthesis,
    UnexpectedParenthesis,
    MissingOperand,
    ExpectedEndOfStatement,
    MissingThen,
    UnclosedBlock,
    UnmatchedBlockEnd,
    NameAfterNext,
    TypeDeclaration,
    TypeSuffix,
    OptionalParameter,
    LabelJump,
    SubCallParentheses,
    ExitOutside,
    NameRedefined,
    InvalidAssignment,
    ConstantNotLiteral,
    MisplacedOptionExplicit,
    ReservedName,
    UnsupportedOperator,
    UnsupportedStatement,
    LoopVariable,
    MisplacedDeclaration,
    PropertyArguments,
    MemberOutsideWith,
    InvalidBounds,
    InvalidContinuation,
    CaseRange,
    LineLabel,
    // Does not compile or is certain to fail: found from the symbols.
    UndeclaredName = 1101,
    ArgumentCount,
    ConstantAssigned,

    NestingTooDeep = 2001,
    // Almost certainly unintended.
    MissingSet,
    SetWithValue,
    UnknownMember,
    MisspelledName,
    NullComparison,
    ResumeNextNeverEnds,
    UnreachableCode,
    FunctionWithoutResult,
    LoopVariableChanged,
    NoShortCircuit,
    RepeatedCondition,
    // Worth knowing.
    UnusedDeclaration = 3001,
    NeverRead,
    ShadowedName,
    NoOptionExplicit,
    NeedsVbscript,
    ErrorsIgnored,
    // Pages: found by page/.
    MissingFile = 4001,
    MissingFragment,
    PictureWithoutText,
    PictureWithoutSize,
    DuplicateId,
    UnclosedElement,
    MisnestedElement,
    UnmatchedEndTag,
};

struct RuleInfo {
    Rule rule;
    Level level;
    std::string_view title; ///< the problem in general, without a full stop
    std::string_view
        why; ///< a paragraph: what the script host or the browser does, and what to write instead
};

/// In ascending order of codes.
[[nodiscard]] std::span<const RuleInfo> allRules();
[[nodiscard]] const RuleInfo &ruleInfo(Rule rule);

/// "error", "warning" or "hint".
[[nodiscard]] std::string_view levelName(Level level);
[[nodiscard]] std::optional<Level> levelNamed(std::string_view name);
/// "KV1001"
[[nodiscard]] std::string code(Rule rule);
/// The rule of "KV1001", ignoring case.
[[nodiscard]] std::optional<Rule> ruleOfCode(std::string_view code);

} // namespace kevra::script
