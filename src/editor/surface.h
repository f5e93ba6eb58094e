// SPDX-License-Identifier: GPL-3.0-or-later
// EditorSurface: the interface to a control that holds a document. The document's text is UTF-8 with CRLF
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

/// What text between the runs of a bulk colouring gets.
enum class Ground { Black, AsItIs };

enum class MousePointer { Default = 0, Hourglass = 11 };

/// A right margin in twips that no line reaches: no wrapping. 0 wraps at the control's width.
inline constexpr int noWrapMargin = 60000;

/// How a control looks, and whether it takes input.
class ControlAppearance {
public:
    virtual ~ControlAppearance() = default;

    [[nodiscard]] virtual EditorFont Font() const = 0;
    virtual void SetFont(const EditorFont &font) = 0;
    [[nodiscard]] virtual int RightMargin() const = 0;
    virtual void SetRightMargin(int twips) = 0;
    /// Off: the control ignores input and is not repainted during a long operation.
    virtual void SetDisplay(bool on) = 0;
    virtual void SetMousePointer(MousePointer pointer) = 0;
    virtual void SetFocus() = 0;
};

class EditorSurface : public ControlAppearance {
public:
    /// The whole text; the view is valid until the next change. May cost a pass over the text.
    [[nodiscard]] virtual std::string_view Text() const = 0;
    /// A part of the text, at a cost proportional to its length; the view is valid until the next change or
    /// read.
    [[nodiscard]] virtual std::string_view Text(TextRange range) const = 0;
    [[nodiscard]] virtual Offset TextLength() const = 0;
    /// Loads a new text: all black, also the typing colour, caret at 0, nothing to undo.
    virtual void LoadText(std::string_view text) = 0;
    /// Replaces a part of the text in one undo step. The new text has the typing colour; the caret is after
    /// it.
    virtual void Replace(TextRange range, std::string_view text) = 0;

    [[nodiscard]] virtual TextRange Selection() const = 0;
    /// Selects with the caret at the end; both ends are limited to the text.
    virtual void Select(TextRange range) = 0;

    /// The colour of what is typed next, whatever is selected.
    [[nodiscard]] virtual Colour TypingColor() const = 0;
    virtual void SetTypingColor(Colour colour) = 0;
    [[nodiscard]] virtual Colour ColourAt(Offset position) const = 0;
    /// Makes `range` black unless `ground` says otherwise, then paints `runs` in order; parts outside of
    /// `range` are ignored.
    virtual void SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground) = 0;
    void SetColours(TextRange range, std::span<const ColourRun> runs)
    {
        SetColours(range, runs, Ground::Black);
    }

    /// Colours the whole text. The paint has the length of the text and at most 32 colours.
    virtual void SetPaint(Paint paint) = 0;

    /// Marks the line of a position as unfinished: typed in, and not coloured since.
    virtual void SetUnfinished(Offset position, bool on) = 0;
    /// The first position of `range`, its end included, that is on an unfinished line, or -1.
    [[nodiscard]] virtual Offset NextUnfinished(TextRange range) const = 0;
    /// Marks every line of `range` as finished.
    void FinishLines(TextRange range);

    /// The line of a position, from 0.
    [[nodiscard]] virtual Offset GetLineFromChar(Offset position) const = 0;
    [[nodiscard]] virtual Offset FirstVisibleLine() const = 0;
    virtual void SetFirstVisibleLine(Offset line) = 0;

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
    /// Taken part by part: a control need not bring the whole text together for it.
    [[nodiscard]] std::string TextCopy() const;
    [[nodiscard]] std::string SelText() const { return std::string(Text(Selection())); }
    void SetSelText(std::string_view text) { Replace(Selection(), text); }

    [[nodiscard]] std::optional<Offset> Find(
        std::string_view what, TextRange range, FindOptions options = {}) const
    {
        return findText(Text(), what, range, options);
    }
    /// Extends the selection forward from its start up to, not including, the next character that is in
    /// `characters`, or to the end of the text.
    void Span(std::string_view characters);
};

/// Switches a surface's display off and shows the hourglass during its lifetime.
class BusySurface {
public:
    explicit BusySurface(ControlAppearance &surface);
    ~BusySurface();
    BusySurface(const BusySurface &) = delete;
    BusySurface &operator=(const BusySurface &) = delete;

private:
    ControlAppearance &m_surface;
};

} // namespace kevra
