// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/program_generator.h"

#include <array>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

namespace kevra::testing {
namespace {

struct Procedure {
    std::string name;
    unsigned parameters;
};

/// The names that may be used at a place.
struct Scope {
    std::vector<std::string> variables; ///< read, assigned, used as objects
    std::vector<std::string> arrays; ///< of a fixed size
    std::vector<std::string> dynamicArrays;
};

enum class Inside { Nothing, Sub, Function, Property };

constexpr std::array comments{"' a comment", "'", "Rem as in old times", "' \"quoted\" : If Then"};
constexpr std::array binaryOperators{"+", "-", "*", "/", "\\", "Mod", "^", "&", "=", "<>", "<", ">",
    "<=", ">=", "=<", "=>", "And", "Or", "Xor", "Eqv", "Imp", "Is"};
constexpr std::array memberNames{
    "Name", "Count", "Value", "End", "Next", "Default", "Property", "Step", "Loop"};
constexpr std::array builtinCalls{"Len(@)", "Left(@, 2)", "Mid(@, 1)", "Mid(@, 1, @)", "InStr(@, @)",
    "InStr(1, @, @, 1)", "Replace(@, @, \"\")", "Split(@, \",\")(0)", "UCase(@)", "DateAdd(\"d\", 1, Now)",
    "Now()", "Timer", "Array()", "Array(@, @)", "CStr(@)", "IsNull(@)", "TypeName(@)", "Round(@, 2)",
    "vbCrLf", "vbTextCompare", "Rnd", "Chr(@)", "CreateObject(\"Scripting.Dictionary\").Count",
    "StrComp(@, @)", "UBound(Array(1, 2))", "String(3, @)"};
constexpr std::array commonLiterals{"0", "42", "&HFF", "&h7fff&", ".5", "1.", "1e3", "1.5E-3", "\"\"",
    "\"text\"", "\"say \"\"yes\"\"\"", "\"' no comment : here\"", "#1/31/2026#", "#2026-01-31 14:30:00#",
    "True", "False", "Null", "Empty", "Nothing"};
constexpr std::array rareLiterals{"&O17", "#jan 31, 2026#", "#14:30#", "&HFFFFFFFF"};
constexpr std::array constants{"1", "-2", "\"text\"", "&H10", "True", "Null", "#1/1/2026#", "Empty"};

class Generator {
public:
    Generator(std::uint64_t seed, Forms forms)
        : m_random(seed)
        , m_rare(forms == Forms::All)
    {
    }

    std::string program()
    {
        m_lineEnd = chance(50) ? "\r\n" : "\n";
        if (chance(30))
            line(pick(comments));
        if (chance(50))
            line(keyword("Option") + space() + keyword("Explicit"));
        planProcedures();
        declarations(m_global);
        for (unsigned part = upTo(4); part > 0; --part) {
            if (chance(30))
                classDeclaration();
            block();
        }
        for (const auto &sub : m_subs)
            procedure("Sub", sub, Inside::Sub);
        for (const auto &function : m_functions)
            procedure("Function", function, Inside::Function);
        return std::move(m_out);
    }

private:
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(m_random() % (limit + 1)); }
    bool chance(unsigned percent) { return m_random() % 100 < percent; }
    std::string pick(const auto &from) { return std::string(from[m_random() % std::size(from)]); }

    std::string fresh(std::string_view stem)
    {
        auto name = std::string(stem) + std::to_string(++m_count);
        return m_rare && chance(5) ? "[" + name + " in words]" : name;
    }

    std::string keyword(std::string_view word)
    {
        std::string out(word);
        if (chance(20)) {
            for (char &c : out)
                c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
        return out;
    }

    /// Between two words of a statement.
    std::string space() { return chance(2) ? " _" + m_lineEnd + "\t" : chance(5) ? "\t " : " "; }

    void line(const std::string &text)
    {
        m_out.append(chance(90) ? m_indent : upTo(9), ' ');
        m_out += text;
        if (chance(6))
            m_out += " ' and a remark";
        m_out += chance(5) ? m_lineEnd + m_lineEnd : m_lineEnd;
    }

    void indented(const std::function<void()> &body)
    {
        m_indent += 4;
        ++m_depth;
        body();
        --m_depth;
        m_indent -= 4;
    }

    void planProcedures()
    {
        for (auto *list : {&m_subs, &m_functions}) {
            for (unsigned count = upTo(3); count > 0; --count)
                list->push_back({fresh("Proc"), upTo(3)});
        }
    }

    void declarations(Scope &scope)
    {
        scope.variables.push_back(fresh("name"));
        std::string dim = keyword("Dim") + space() + scope.variables.back();
        for (unsigned count = 1 + upTo(3); count > 0; --count) {
            scope.variables.push_back(fresh("total"));
            dim += "," + space() + scope.variables.back();
        }
        scope.arrays.push_back(fresh("list"));
        scope.dynamicArrays.push_back(fresh("table"));
        line(dim);
        line("Dim " + scope.arrays.back() + "(" + std::to_string(upTo(9)) + "), " + scope.dynamicArrays.back()
            + "()");
        if (chance(50)) {
            m_constants.push_back(fresh("Limit"));
            line(keyword("Const") + space() + m_constants.back() + " =" + space() + pick(constants));
        }
    }

    [[nodiscard]] Scope &scopeForName() { return m_local && chance(60) ? *m_local : m_global; }
    std::string variable() { return pick(scopeForName().variables); }

    std::string arguments(unsigned count)
    {
        std::string out;
        for (unsigned i = 0; i < count; ++i)
            out += (i > 0 ? "," + space() : "") + expression(2);
        return out;
    }

    std::string filled(const std::string &pattern)
    {
        std::string out;
        for (const char c : pattern) {
            if (c == '@')
                out += expression(2);
            else
                out += c;
        }
        return out;
    }

    std::string object()
    {
        if (m_withDepth > 0 && chance(40))
            return "." + pick(memberNames);
        const auto base = variable() + "." + pick(memberNames);
        return chance(20) ? base + "(" + arguments(1 + upTo(1)) + ")." + pick(memberNames) : base;
    }

    std::string operand(unsigned depth)
    {
        switch (upTo(9)) {
        case 0:
            return pick(scopeForName().arrays) + "(" + expression(depth) + ")";
        case 1:
            return filled(pick(builtinCalls));
        case 2:
            return object() + (chance(50) ? "(" + arguments(upTo(2)) + ")" : "");
        case 3:
            if (!m_functions.empty()) {
                const auto &function = m_functions[m_random() % m_functions.size()];
                return function.name + "(" + arguments(function.parameters) + ")";
            }
            [[fallthrough]];
        case 4:
            return "(" + expression(depth) + ")";
        case 5:
            return pick(std::array{"-", "+"}) + operand(depth);
        case 6:
            return m_rare && chance(30) ? pick(rareLiterals) : pick(commonLiterals);
        case 7:
            return m_constants.empty() || m_local ? pick(commonLiterals) : pick(m_constants);
        default:
            return variable();
        }
    }

    std::string expression(unsigned depth = 0)
    {
        // A plain name or number where it would never end.
        if (depth >= 4)
            return chance(50) ? variable() : pick(commonLiterals);
        auto out = (chance(8) ? keyword("Not") + " " : "") + operand(depth + 1);
        while (chance(depth == 0 ? 40 : 15))
            out += space() + keyword(pick(binaryOperators)) + space() + operand(depth + 1);
        return out;
    }

    std::string target()
    {
        switch (upTo(5)) {
        case 0:
            return pick(scopeForName().arrays) + "(" + expression(2) + ")";
        case 1:
            return object();
        case 2:
            return object() + "(" + arguments(1) + ")";
        default:
            return variable();
        }
    }

    /// Of a call without parentheses. "f (a) = b" would be an assignment, so what begins with a parenthesis
    /// gets another; the independent script host knows only plain forms of these.
    std::string statementArguments(unsigned count)
    {
        auto first = m_rare ? expression(2) : variable();
        if (first.starts_with('('))
            first = "(" + first + ")";
        return first + (count > 1 ? "," + space() + arguments(count - 1) : "");
    }

    std::string call()
    {
        if (m_subs.empty() || chance(40))
            return chance(30) ? keyword("Call") + " " + object() + "(" + arguments(1 + upTo(2)) + ")"
                              : object() + (chance(50) ? " " + statementArguments(1 + upTo(2)) : "");
        const auto &sub = m_subs[m_random() % m_subs.size()];
        if (chance(40))
            return keyword("Call") + " " + sub.name
                + (sub.parameters > 0 ? "(" + arguments(sub.parameters) + ")" : "");
        return sub.name + (sub.parameters > 0 ? " " + statementArguments(sub.parameters) : "");
    }

    std::string simpleStatement()
    {
        switch (upTo(9)) {
        case 0:
            return keyword("Set") + " " + variable() + " = "
                + pick(std::array{"Nothing", "CreateObject(\"WScript.Shell\")", "New RegExp"});
        case 1:
            return keyword("ReDim") + (chance(50) ? " Preserve " : " ") + pick(scopeForName().dynamicArrays)
                + "(" + expression(2) + ")";
        case 2:
            return pick(std::array{
                "On Error Resume Next", "On Error GoTo 0", "Randomize", "Execute \"x = 1\"", "Stop"});
        case 3:
            return m_rare ? keyword("Erase") + " " + pick(scopeForName().dynamicArrays) : call();
        case 4:
        case 5:
            return call();
        default:
            return target() + space() + "=" + space() + expression();
        }
    }

    void simpleLine()
    {
        auto text = simpleStatement();
        while (chance(15))
            text += (chance(20) ? " :: " : " : ") + simpleStatement();
        line(text);
    }

    void block()
    {
        for (unsigned count = upTo(4); count > 0; --count) {
            if (m_depth < 5 && chance(35))
                compound();
            else
                simpleLine();
        }
        if (chance(10))
            exitStatement();
    }

    void exitStatement()
    {
        constexpr std::array words{"", "Sub", "Function", "Property"};
        if (!m_loop.empty() && chance(60))
            line(keyword("Exit") + " " + m_loop);
        else if (m_inside != Inside::Nothing)
            line(keyword("Exit") + " " + words[static_cast<std::size_t>(m_inside)]);
    }

    void compound()
    {
        constexpr std::array kinds{&Generator::ifBlock, &Generator::ifLine, &Generator::select,
            &Generator::forLoop, &Generator::doLoop, &Generator::whileLoop, &Generator::with};
        (this->*kinds[m_random() % kinds.size()])();
    }

    void ifBlock()
    {
        line(keyword("If") + " " + expression() + space() + keyword("Then"));
        indented([&] { block(); });
        while (chance(25)) {
            const bool oneLine = m_rare && chance(30);
            line(keyword("ElseIf") + " " + expression() + " Then" + (oneLine ? " " + simpleStatement() : ""));
            indented([&] { block(); });
        }
        if (chance(30)) {
            line(m_rare && chance(20) ? "Else: " + simpleStatement() : keyword("Else"));
            indented([&] { block(); });
        }
        line(keyword("End") + space() + keyword("If"));
    }

    void ifLine()
    {
        auto text = keyword("If") + " " + expression() + " Then " + simpleStatement();
        if (chance(20))
            text += " : " + simpleStatement();
        if (chance(30))
            text += " Else " + simpleStatement();
        line(text + (chance(10) ? " End If" : ""));
    }

    void select()
    {
        line("Select Case " + expression());
        indented([&] {
            for (unsigned count = upTo(3); count > 0; --count) {
                line("Case " + arguments(1 + upTo(2)) + (chance(30) ? " : " + simpleStatement() : ""));
                indented([&] { block(); });
            }
            if (chance(40)) {
                line("Case Else");
                indented([&] { block(); });
            }
        });
        line("End Select");
    }

    void loopBody(std::string_view exitWord)
    {
        const auto outer = m_loop;
        m_loop = exitWord;
        indented([&] { block(); });
        m_loop = outer;
    }

    void forLoop()
    {
        if (chance(40))
            line(keyword("For Each") + " " + variable() + " In " + expression(2));
        else
            line(keyword("For") + " " + variable() + " = " + expression(2) + space() + "To " + expression(2)
                + (chance(30) ? " Step " + expression(2) : ""));
        loopBody("For");
        line(keyword("Next"));
    }

    void doLoop()
    {
        const auto condition = " " + pick(std::array{"While", "Until"}) + " " + expression();
        const auto where = upTo(2);
        line("Do" + (where == 0 ? condition : ""));
        loopBody("Do");
        line("Loop" + (where == 1 ? condition : ""));
    }

    void whileLoop()
    {
        line("While " + expression());
        indented([&] { block(); });
        line(keyword("WEnd"));
    }

    void with()
    {
        line("With " + object());
        ++m_withDepth;
        indented([&] { block(); });
        --m_withDepth;
        line("End With");
    }

    void procedure(
        const std::string &kind, const Procedure &what, Inside inside, const std::string &prefix = "")
    {
        Scope local;
        std::string parameters;
        for (unsigned i = 0; i < what.parameters; ++i) {
            local.variables.push_back(fresh("value"));
            parameters
                += (i > 0 ? ", " : "") + pick(std::array{"", "ByVal ", "ByRef "}) + local.variables.back();
        }
        const bool bare = what.parameters == 0 && chance(50);
        line(prefix + keyword(kind) + " " + what.name + (bare ? "" : "(" + parameters + ")"));
        const auto constantsOutside = m_constants.size();
        indented([&] {
            declarations(local);
            m_local = &local;
            m_inside = inside;
            block();
            if (kind == "Function" || kind == "Property Get")
                line(what.name + " = " + expression());
            m_inside = Inside::Nothing;
            m_local = nullptr;
        });
        m_constants.resize(constantsOutside);
        line("End " + kind.substr(0, kind.find(' ')));
    }

    void classDeclaration()
    {
        line("Class " + fresh("Thing"));
        indented([&] {
            line(pick(std::array{"Private ", "Public ", "Dim "}) + fresh("m_part"));
            if (chance(40))
                procedure("Sub", {"Class_Initialize", 0}, Inside::Sub, "Private ");
            const auto property = fresh("Part");
            procedure("Property Get", {property, 0}, Inside::Property, chance(20) ? "Public Default " : "");
            if (chance(50))
                procedure("Property Let", {property, 1}, Inside::Property, "Public ");
            if (chance(30))
                procedure("Property Set", {property, 1}, Inside::Property);
            procedure("Function", {fresh("Compute"), upTo(2)}, Inside::Function);
        });
        line("End Class");
    }

    std::mt19937_64 m_random;
    bool m_rare;
    std::string m_out;
    std::string m_lineEnd;
    std::size_t m_indent = 0;
    unsigned m_depth = 0;
    unsigned m_count = 0;
    unsigned m_withDepth = 0;
    std::string m_loop; ///< what Exit would leave
    Inside m_inside = Inside::Nothing;
    Scope m_global;
    Scope *m_local = nullptr;
    std::vector<std::string> m_constants; ///< of the place where the text stands now
    std::vector<Procedure> m_subs;
    std::vector<Procedure> m_functions;
};

} // namespace

std::string generateProgram(std::uint64_t seed, Forms forms)
{
    return Generator(seed, forms).program();
}

} // namespace kevra::testing
