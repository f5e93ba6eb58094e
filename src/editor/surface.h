// SPDX-License-Identifier: GPL-3.0-or-later
// EditorSurface: the logic's view of a control that holds a document. The document's text is UTF-8 with CRLF
// line breaks; positions are byte offsets in it. Whole-document work reads Text() once, computes coloured
// runs and hands them over with SetColours(); the operations on the selection are for local repaints.
#pragma once

#include "text/find.h"
#include "text/paint.h"
#include "text/types.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kevra {

struct EditorFont {
    std::string face;
    int size = 10; ///< points

    friend bool operator==(const EditorFont &, const EditorFont &) = default;
};

/// What a bulk colouring paints its runs on.
enum class Ground { Black, AsItIs };

enum class MousePointer { Default = 0, Hourglass = 11 };

/// A right margin, in twips, beyond every line: no wrapping. 0 wraps at the control's width.
inline constexpr int noWrapMargin = 60000;

class EditorSurface {
public:
    virtual ~EditorSurface() = default;

    /// The whole text; the view holds until the next change. May cost a pass over the text.
    [[nodiscard]] virtual std::string_view Text() const = 0;
    /// A part of the text, at the cost of its own length; the view holds until the next change or read.
    [[nodiscard]] virtual std::string_view Text(TextRange range) const = 0;
    [[nodiscard]] virtual Offset Length() const = 0;
    /// Puts a new document in: black, also what is typed next, caret at 0, nothing to undo.
    virtual void LoadText(std::string_view text) = 0;
    /// Replaces a part of the text as one step of undo. The new text has the typing colour; the caret ends
    /// behind it.
    virtual void Replace(TextRange range, std::string_view text) = 0;

    [[nodiscard]] virtual TextRange Selection() const = 0;
    /// Selects with the caret at the end; both ends are brought inside the text.
    virtual void Select(TextRange range) = 0;

    /// The colour of what is typed next, whatever is selected.
    [[nodiscard]] virtual Colour TypingColor() const = 0;
    virtual void SetTypingColor(Colour colour) = 0;
    [[nodiscard]] virtual Colour ColourAt(Offset position) const = 0;
    /// Makes `range` black, unless told to leave it as it is, and paints `runs` over it in their order; what
    /// reaches outside is cut off.
    virtual void SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground) = 0;
    void SetColours(TextRange range, std::span<const ColourRun> runs)
    {
        SetColours(range, runs, Ground::Black);
    }

    /// Colours the whole text, which the paint is as long as, in 32 colours at most.
    virtual void SetPaint(Paint paint) = 0;

    [[nodiscard]] virtual EditorFont Font() const = 0;
    virtual void SetFont(const EditorFont &font) = 0;
    [[nodiscard]] virtual int RightMargin() const = 0;
    virtual void SetRightMargin(int twips) = 0;

    /// Whether the line of a position is being written: typed in, and not coloured since.
    virtual void SetUnfinished(Offset position, bool on) = 0;
    /// The first position of `range`, its end included, that is on such a line, or -1.
    [[nodiscard]] virtual Offset NextUnfinished(TextRange range) const = 0;
    /// Every line of `range` has its colours.
    void FinishLines(TextRange range);

    /// The line a position is on, from 0.
    [[nodiscard]] virtual Offset GetLineFromChar(Offset position) const = 0;
    [[nodiscard]] virtual Offset FirstVisibleLine() const = 0;
    virtual void SetFirstVisibleLine(Offset line) = 0;

    /// Off: the control is inert and keeps its picture while a long operation works on it.
    virtual void SetDisplay(bool on) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
    virtual void SetFocus() = 0;

    [[nodiscard]] Offset SelStart() const { return Selection().start; }
    /// Puts the caret there and selects nothing.
    void SetSelStart(Offset position) { Select({position, position}); }
    [[nodiscard]] Offset SelLength() const { return Selection().length(); }
    /// False, with nothing changed, when the length is negative.
    bool SetSelLength(Offset length);
    /// The typing colour, or with a selection the colour of its first character.
    [[nodiscard]] Colour SelColor() const;
    /// Colours the selection, or sets the typing colour when nothing is selected.
    void SetSelColor(Colour colour);
    [[nodiscard]] std::string SelText() const { return std::string(Text(Selection())); }
    void SetSelText(std::string_view text) { Replace(Selection(), text); }

    [[nodiscard]] std::optional<Offset> Find(
        std::string_view what, TextRange range, FindOptions options = {}) const
    {
        return find(Text(), what, range, options);
    }
    /// Extends the selection forward from its start up to, not including, the next character that is in
    /// `characters`, or to the end of the text.
    void Span(std::string_view characters);
};

/// Makes a surface inert with the hourglass shown, and undoes both on every way out.
class BusySurface {
public:
    explicit BusySurface(EditorSurface &surface);
    ~BusySurface();
    BusySurface(const BusySurface &) = delete;
    BusySurface &operator=(const BusySurface &) = delete;

private:
    EditorSurface &m_surface;
};

} // namespace kevra
