// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/rules.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kevra::script {

namespace {

constexpr std::array rules{
    RuleInfo{Rule::SyntaxError, Level::Error, "Statement not understood",
        "The script host compiles the whole text before it runs the first line. A statement it cannot read "
        "keeps "
        "every other line from running too."},
    RuleInfo{Rule::UnclosedString, Level::Error, "String not closed",
        "A string ends on the line it begins on. A quotation mark inside a string is written twice: \"say "
        "\"\"yes\"\"\"; "
        "a line break is put in with & vbCrLf &."},
    RuleInfo{Rule::InvalidCharacter, Level::Error, "Character outside the language",
        "Outside strings and comments VBScript knows letters, digits, the underscore and its operators. Text "
        "copied "
        "from a web page or a word processor often brings typographic quotation marks, long dashes and "
        "special "
        "spaces along."},
    RuleInfo{Rule::InvalidNumber, Level::Error, "Number not understood",
        "Numbers are written 12, 1.5, .5, 1e-3, &HFF or &O17, without a suffix and without separators of "
        "thousands."},
    RuleInfo{Rule::InvalidDate, Level::Error, "Date not understood",
        "A date stands between two number signs on one line: #2026-01-31# or #1/31/2026 14:30#. It has to "
        "exist."},
    RuleInfo{Rule::MissingParenthesis, Level::Error, "Parenthesis not closed",
        "Each opening parenthesis needs its closing one in the same statement. A statement ends with its "
        "line unless "
        "the line ends with a space and an underscore."},
    RuleInfo{Rule::UnexpectedParenthesis, Level::Error, "Closing parenthesis without an opening one",
        "There are more closing parentheses than opening ones in this statement."},
    RuleInfo{Rule::MissingOperand, Level::Error, "Expression missing",
        "Here the script host expects a value: after an operator, an equals sign, a comma or a keyword such "
        "as If. "
        "A longer expression goes on in the next line only behind a space and an underscore."},
    RuleInfo{Rule::ExpectedEndOfStatement, Level::Error, "More text than the statement can take",
        "The statement is complete before this place. Statements on one line are separated by colons, parts "
        "of an "
        "expression by operators, arguments by commas."},
    RuleInfo{Rule::MissingThen, Level::Error, "If or ElseIf without Then",
        "The condition of If and ElseIf ends with Then on the same line."},
    RuleInfo{Rule::UnclosedBlock, Level::Error, "Block still open",
        "Each block has its own end: If and End If, For and Next, Do and Loop, While and Wend, Select Case "
        "and End "
        "Select, With and End With, Sub and End Sub, Function and End Function, Property and End Property, "
        "Class "
        "and End Class. The inner block ends before the outer one does."},
    RuleInfo{Rule::UnmatchedBlockEnd, Level::Error, "End of a block that is not open",
        "Nothing is open that this line could end. Often the line that opens the block was removed, the "
        "block was "
        "ended before, or an If with its statement behind Then, which needs no End If, was given one."},
    RuleInfo{Rule::NameAfterNext, Level::Error, "Variable after Next",
        "Next stands alone in VBScript; which loop goes on is clear from the nesting."},
    RuleInfo{Rule::TypeDeclaration, Level::Error, "Type declared with As",
        "All variables, parameters and results in VBScript are Variants; As is not part of the language. "
        "Values are "
        "converted with functions such as CLng and CStr."},
    RuleInfo{Rule::TypeSuffix, Level::Error, "Name with a type suffix",
        "The suffixes $, %, !, #, @ and & that name a type elsewhere are not part of VBScript. All variables "
        "are "
        "Variants, and functions such as Left have no form with a suffix."},
    RuleInfo{Rule::OptionalParameter, Level::Error, "Optional parameter",
        "Procedures in VBScript have a fixed number of parameters: Optional, ParamArray and default values "
        "are not "
        "part of the language. Pass Null or an array instead."},
    RuleInfo{Rule::LabelJump, Level::Error, "Jump to a label",
        "VBScript has neither labels nor GoTo, GoSub and Resume. Errors are handled with On Error Resume "
        "Next, a "
        "look at Err.Number after the statement that may fail, and On Error GoTo 0."},
    RuleInfo{Rule::LineLabel, Level::Error, "Line label or line number",
        "VBScript has no labels and no line numbers."},
    RuleInfo{Rule::SubCallParentheses, Level::Error, "Cannot use parentheses when calling a Sub",
        "A call whose result is not used takes its arguments without parentheses, or stands behind Call: "
        "either "
        "Update a, b or Call Update(a, b)."},
    RuleInfo{Rule::ExitOutside, Level::Error, "Exit outside of what it leaves",
        "Exit Do and Exit For stand inside such a loop, Exit Sub, Exit Function and Exit Property inside "
        "such a "
        "procedure. A script as a whole ends with WScript.Quit; a While loop cannot be left early."},
    RuleInfo{Rule::NameRedefined, Level::Error, "Name declared twice",
        "Within a script, a class or a procedure a name is declared once. Upper and lower case make no "
        "difference, "
        "and a parameter counts as declared in its procedure."},
    RuleInfo{Rule::InvalidAssignment, Level::Error, "Assignment to what cannot be assigned",
        "On the left of the equals sign stands a variable, an element of an array or a property. Objects are "
        "assigned with Set NAME = VALUE."},
    RuleInfo{Rule::ConstantNotLiteral, Level::Error, "Constant without a literal value",
        "The value of a Const is fixed when the script is compiled: a number, a string, a date, True, False, "
        "Null, "
        "Empty or Nothing. For a computed value use a variable."},
    RuleInfo{Rule::MisplacedOptionExplicit, Level::Error, "Option Explicit after other statements",
        "Option Explicit is the first statement of a script; only comments and empty lines may stand before "
        "it. "
        "There are no other options."},
    RuleInfo{Rule::ReservedName, Level::Error, "Keyword used as a name",
        "The keywords of the language cannot name variables, procedures, parameters or classes, unless they "
        "are put "
        "in brackets: [Next]. After a dot every name is allowed."},
    RuleInfo{Rule::UnsupportedOperator, Level::Error, "Operator of another language",
        "Equality is written =, inequality <>, logical operators And, Or and Not. There is no assignment "
        "that "
        "computes: x += 1 is written x = x + 1."},
    RuleInfo{Rule::UnsupportedStatement, Level::Error, "Statement of another language",
        "This statement exists in related languages and not in VBScript."},
    RuleInfo{Rule::LoopVariable, Level::Error, "Loop variable that is not a plain variable",
        "The variable of a For or For Each is a plain name, neither an element of an array nor a property."},
    RuleInfo{Rule::MisplacedDeclaration, Level::Error, "Declaration where it cannot stand",
        "Classes stand at the outermost level, procedures there or in a class, properties in a class. A "
        "class "
        "consists of declarations of variables, procedures and properties only."},
    RuleInfo{Rule::PropertyArguments, Level::Error, "Parameters that do not suit the procedure",
        "Property Let and Property Set take the new value as their last parameter; Class_Initialize and "
        "Class_Terminate take none."},
    RuleInfo{Rule::MemberOutsideWith, Level::Error, "Leading dot outside With",
        "A name that begins with a dot belongs to the object of the With around it, in the same procedure."},
    RuleInfo{Rule::InvalidBounds, Level::Error, "Bounds that are not understood",
        "Dim takes the upper bounds as plain integers; the lower bound is always 0. For a computed size "
        "write Dim "
        "a() and then ReDim a(n)."},
    RuleInfo{Rule::InvalidContinuation, Level::Error, "Text after the continuation mark",
        "The underscore that continues a statement on the next line is the last thing on its line; not even "
        "a "
        "comment may follow."},
    RuleInfo{Rule::CaseRange, Level::Error, "Case with a range or comparison",
        "A Case lists values, separated by commas. Ranges (1 To 5) and comparisons (Is > 5) are not part of "
        "VBScript; Select Case True with Case x > 5 does the same."},
    RuleInfo{Rule::UndeclaredName, Level::Error, "Name not declared",
        "Under Option Explicit each variable is declared with Dim, ReDim, Public, Private or Const, or is a "
        "parameter. The script stops where an undeclared name is first used."},
    RuleInfo{Rule::ArgumentCount, Level::Error, "Wrong number of arguments",
        "Procedures of the script take exactly the parameters they declare; functions of the language have a "
        "least "
        "and a greatest number."},
    RuleInfo{Rule::ConstantAssigned, Level::Error, "Assignment to a constant",
        "A Const keeps its value; assigning to it stops the script."},
    RuleInfo{Rule::NestingTooDeep, Level::Warning, "Nested too deep to be analysed",
        "Blocks and expressions can be nested some hundred levels deep here. The text after this place was "
        "not "
        "looked at."},
    RuleInfo{Rule::MissingSet, Level::Warning, "Object assigned without Set",
        "Without Set an assignment takes the value of the object's default member. Most objects of the "
        "script host have "
        "none, and the statement fails with error 438 or 91; where there is one, the variable holds a text "
        "or number "
        "and no object."},
    RuleInfo{Rule::SetWithValue, Level::Warning, "Value assigned with Set",
        "Set takes an object on its right side. A text, a number, a truth value or an array is assigned "
        "without Set; "
        "with it the statement fails with error 424."},
    RuleInfo{Rule::UnknownMember, Level::Warning, "Member the object does not have",
        "The variable only ever holds objects of this class, and the class has no such property or method. "
        "The "
        "statement fails with error 438."},
    RuleInfo{Rule::MisspelledName, Level::Warning, "Name one letter away from a declared one",
        "The name is nowhere declared and differs from a declared one by a single letter. VBScript makes a "
        "new, empty "
        "variable of it. Option Explicit finds such slips when the script runs."},
    RuleInfo{Rule::NullComparison, Level::Warning, "Comparison with Null",
        "Each comparison with Null gives Null, which a condition takes for False: neither x = Null nor x <> "
        "Null is "
        "ever true. IsNull(x) asks for Null, IsEmpty(x) for a variable without a value."},
    RuleInfo{Rule::ResumeNextNeverEnds, Level::Warning, "On Error Resume Next without an end",
        "On Error Resume Next outside of procedures holds until On Error GoTo 0 or the end of the script. "
        "Every error "
        "in between passes unnoticed, misspelled names and missing files too. Put it right before the "
        "statement that "
        "may fail, look at Err.Number after it, and end it with On Error GoTo 0."},
    RuleInfo{Rule::UnreachableCode, Level::Warning, "Code that is never reached",
        "The statement before leaves the loop, the procedure or the script in every case, or is a loop that "
        "never "
        "ends."},
    RuleInfo{Rule::FunctionWithoutResult, Level::Warning, "Function that never sets its result",
        "A function returns what was assigned to its own name, with Set where that is an object. Without "
        "such an "
        "assignment it always returns Empty."},
    RuleInfo{Rule::LoopVariableChanged, Level::Warning, "Loop variable changed inside its For",
        "Next adds to whatever the variable holds, so the loop skips or repeats rounds, or never ends. A Do "
        "loop says "
        "more clearly what is meant, and a loop in a loop needs a variable of its own."},
    RuleInfo{Rule::NoShortCircuit, Level::Warning, "And or Or expected to stop early",
        "VBScript computes both sides of And and Or before it combines them. What the left side is to "
        "prevent happens "
        "all the same, and often is an error. Write one If inside the other."},
    RuleInfo{Rule::RepeatedCondition, Level::Warning, "The same condition twice",
        "The first branch whose condition holds is taken, so a later branch with the same condition never "
        "is. Often "
        "the second one was copied and left unchanged."},
    RuleInfo{Rule::UnusedDeclaration, Level::Hint, "Declared and never used",
        "Nothing in the script uses the name. It may be left over, or another name was misspelled."},
    RuleInfo{Rule::NeverRead, Level::Hint, "Assigned and never read",
        "The value has no effect. It may be left over, or another name was misspelled. The result of a "
        "method that is "
        "not needed can be left away: call the method as a statement."},
    RuleInfo{Rule::ShadowedName, Level::Hint, "Name that hides another",
        "Inside the procedure the name no longer stands for what it stands for elsewhere. That is easily "
        "overlooked by "
        "whoever changes the script next."},
    RuleInfo{Rule::NoOptionExplicit, Level::Hint, "No Option Explicit",
        "With Option Explicit as the first statement every variable has to be declared, and a misspelled "
        "name stops "
        "the script with an error instead of working with an empty variable."},
    RuleInfo{Rule::ErrorsIgnored, Level::Hint, "On Error Resume Next for the whole script",
        "A script that begins with On Error Resume Next and never looks at Err goes on after each failure, "
        "with "
        "whatever values there are. If that is meant, the statements that may fail can be put between On "
        "Error "
        "Resume Next and On Error GoTo 0, so that other mistakes are still seen."},
    RuleInfo{Rule::NeedsVbscript, Level::Hint, "What goes away with VBScript",
        "VBScript is deprecated: Windows 11 has it as a feature on demand, and a later version will be "
        "without. Then "
        "wscript.exe, cscript.exe and mshta.exe no longer run such scripts, and the classes inside the "
        "engine, "
        "VBScript.RegExp among them, are missing for other programs too. Scripting.FileSystemObject, "
        "Scripting.Dictionary and WScript.Shell are parts of their own. The related places list what this "
        "script "
        "uses."},
    RuleInfo{Rule::MissingFile, Level::Warning, "Link to a file that is not there",
        "A link, a picture, a style sheet or a script names a local file that does not exist, seen from the "
        "page's folder or from what its base element says. Capital and small letters count where the disk "
        "tells them apart. Addresses with a scheme such as https: are not looked at."},
    RuleInfo{Rule::MissingFragment, Level::Warning, "Link to a place that is not there",
        "The part of a link after # is the id of an element, or the name of an anchor, in the page it leads "
        "to. "
        "Without such an element the browser shows the top of the page."},
    RuleInfo{Rule::PictureWithoutText, Level::Warning, "Picture without alt",
        "The alt attribute is what is read out, and shown where the picture is not. A picture that only "
        "decorates has an empty one, alt=\"\", and is then passed over."},
    RuleInfo{Rule::PictureWithoutSize, Level::Hint, "Picture without width and height",
        "A browser that knows the size of a picture before it is loaded keeps its place free, so that the "
        "text "
        "around it does not jump. A style sheet may still give it another size."},
    RuleInfo{Rule::DuplicateId, Level::Warning, "The same id twice",
        "An id names one element of the page. Links, labels and scripts find the first one only."},
    RuleInfo{Rule::UnclosedElement, Level::Warning, "Element without its end tag",
        "The browser closes the element where the element around it ends, or at the end of the page, which "
        "is "
        "rarely what was meant. A slash at the end of the start tag closes nothing in HTML. Some end tags "
        "may "
        "be left out, </p> and </li> among them."},
    RuleInfo{Rule::MisnestedElement, Level::Warning, "Elements that overlap",
        "What was opened last is closed first. Where elements overlap, the browser makes several of one, or "
        "moves what is in them."},
    RuleInfo{Rule::UnmatchedEndTag, Level::Warning, "End tag without its element",
        "No such element is open here: it has been closed before, often by a start tag that cannot stand in "
        "it, "
        "such as a list in a paragraph. Browsers leave the end tag out, or make an empty element of it."},
};

} // namespace

std::span<const RuleInfo> allRules()
{
    static const auto ordered = [] {
        auto table = rules;
        std::ranges::sort(table, {}, &RuleInfo::rule);
        return table;
    }();
    return ordered;
}

const RuleInfo &ruleInfo(Rule rule)
{
    return *std::ranges::lower_bound(allRules(), rule, {}, &RuleInfo::rule);
}

std::string code(Rule rule)
{
    return "KV" + std::to_string(static_cast<unsigned>(rule));
}

std::optional<Rule> ruleOfCode(std::string_view code)
{
    if (code.size() != 6 || (code[0] | 0x20) != 'k' || (code[1] | 0x20) != 'v')
        return std::nullopt;
    unsigned number = 0;
    const auto parsed = std::from_chars(code.data() + 2, code.data() + code.size(), number);
    const auto found = std::ranges::find(rules, static_cast<Rule>(number), &RuleInfo::rule);
    if (parsed.ptr != code.data() + code.size() || found == rules.end())
        return std::nullopt;
    return found->rule;
}

std::string_view levelName(Level level)
{
    switch (level) {
    case Level::Error:
        return "error";
    case Level::Warning:
        return "warning";
    case Level::Hint:
        break;
    }
    return "hint";
}

std::optional<Level> levelNamed(std::string_view name)
{
    for (const auto level : {Level::Error, Level::Warning, Level::Hint})
        if (levelName(level) == name)
            return level;
    return std::nullopt;
}

} // namespace kevra::script
