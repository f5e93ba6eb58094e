// SPDX-License-Identifier: GPL-3.0-or-later
// EditorSurface over Scintilla. Every colour in use is a Scintilla style; undo belongs to the control and
// knows nothing of colours. Overlong lines are broken in Scintilla's text and nowhere else: positions and
// lines are the document's in whatever this class takes and gives, and Scintilla's in what it sends.
#pragma once

#include "editor/command_changes.h"
#include "editor/line_edits.h"
#include "editor/soft_breaks.h"
#include "editor/surface.h"
#include "editor/typing.h"
#include "editor/undo_steps.h"
#include "editor/unpainted_styles.h"

#include <Qsci/qsciscintillabase.h>

#include <QTimer>

#include <cstdint>
#include <optional>

namespace kevra {

class EditorControl : public QsciScintillaBase, public EditorSurface {
    Q_OBJECT

public:
    explicit EditorControl(QWidget *parent = nullptr);

    [[nodiscard]] std::string_view Text() const override;
    [[nodiscard]] std::string_view Text(TextRange range) const override;
    [[nodiscard]] Offset Length() const override;
    void LoadText(std::string_view text) override;
    void Replace(TextRange range, std::string_view text) override;
    [[nodiscard]] TextRange Selection() const override;
    void Select(TextRange range) override;
    [[nodiscard]] Colour TypingColor() const override { return m_typing; }
    void SetTypingColor(Colour colour) override { m_typing = colour; }
    [[nodiscard]] Colour ColourAt(Offset position) const override;
    using EditorSurface::SetColours;
    void SetColours(TextRange range, std::span<const ColourRun> runs, Ground ground) override;
    void SetPaint(Paint paint) override;
    [[nodiscard]] EditorFont Font() const override { return m_font; }
    void SetFont(const EditorFont &font) override;
    [[nodiscard]] int RightMargin() const override { return m_rightMargin; }
    void SetRightMargin(int twips) override;
    void SetUnfinished(Offset position, bool on) override;
    [[nodiscard]] Offset NextUnfinished(TextRange range) const override;
    [[nodiscard]] Offset GetLineFromChar(Offset position) const override;
    /// Counts the lines as they are shown: a wrapped line is several.
    [[nodiscard]] Offset FirstVisibleLine() const override;
    void SetFirstVisibleLine(Offset line) override;
    void SetDisplay(bool on) override;
    void SetMousePointer(MousePointer pointer) override;
    void SetFocus() override;

    /// Who colours while the user types; not owned, may be null.
    void setTypingHandler(TypingHandler *handler) { m_typingHandler = handler; }
    /// Read-only for the user; the program still writes.
    void setReadOnly(bool on);
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }

    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    /// May have to ask another program.
    [[nodiscard]] bool clipboardHasText() const;
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    /// Deletes the selection, or the character behind the caret.
    void deleteForward();
    /// Replaces a part of the text as the user's own doing: the colouring hears of it, and nothing happens in
    /// a read-only control.
    void replaceAsUser(TextRange range, std::string_view text);
    [[nodiscard]] AnchorAndCaret anchorAndCaret() const;
    /// Does what one of the commands on lines has worked out; nothing in a read-only control.
    void apply(const std::optional<LineEdit> &edit);
    /// Takes one level of indentation off the selected lines.
    void unindent();
    /// Whether Return begins the new line with the blanks that the line above begins with.
    void setKeepIndentation(bool on) { m_keepIndentation = on; }
    [[nodiscard]] bool keepsIndentation() const { return m_keepIndentation; }

    /// Which lines are shown on several; for the texts that come from now on.
    void setLineLimits(const LineLimits &limits) { m_limits = limits; }
    /// Whether there is a line that is shown on several.
    [[nodiscard]] bool breaksLines() const { return !m_breaks.empty(); }
    /// Where a position of the text is in Scintilla's, and the other way round: for its own messages.
    [[nodiscard]] Offset controlPosition(Offset position) const { return m_breaks.toControl(position); }
    [[nodiscard]] Offset textPosition(Offset control) const { return m_breaks.toText(control); }

    /// Before something else than the window shows the text: what waits to be painted does not wait longer.
    void paintAll();
    /// The text as it is now is what the file holds.
    void setSavePoint();
    [[nodiscard]] bool isAtSavePoint() const;

    /// The characters of the text, a line break counting two. Counted once for each text and kept up to date.
    [[nodiscard]] Offset characters() const;
    /// Those on its line before a position.
    [[nodiscard]] Offset charactersBefore(Offset position) const;
    [[nodiscard]] Offset lineCount() const;
    [[nodiscard]] TextRange lineRange(Offset line) const; ///< without the line break
    /// The line, or the part of an overlong one, that a position is on, with its line break.
    [[nodiscard]] TextRange layoutLineAround(Offset position) const;
    /// What stands on the lines that are in view, and the line at the top.
    [[nodiscard]] TextRange textInView() const;
    [[nodiscard]] Offset topLine() const;
    /// The first of the lines shown that hold a line of the text, and how many they are.
    [[nodiscard]] Offset shownLine(Offset line) const;
    [[nodiscard]] Offset shownLineCount(Offset line) const;
    [[nodiscard]] Offset linesOnScreen() const;
    /// The place of a character's left bottom corner in the control's own coordinates.
    [[nodiscard]] QPoint bottomLeftOf(Offset position) const;
    /// The position between characters that is nearest to a place in the control's own coordinates.
    [[nodiscard]] Offset positionAt(QPoint place) const;

signals:
    /// The text from `position` is about to go and can be read a last time; not changed from here.
    void aboutToRemove(kevra::Offset position, kevra::Offset length);
    /// The text has changed, once for every stretch; `position` and `removed` count in the text before.
    void changed(kevra::Offset position, kevra::Offset removed, kevra::Offset added, kevra::EditKind kind);
    /// Caret or selection are elsewhere.
    void caretMoved();
    void firstVisibleLineChanged(kevra::Offset line);
    void savePointChanged(bool atSavePoint);
    void readOnlyChanged(bool readOnly);
    /// After a whole command of the user's, when `touched` has changed.
    void edited(kevra::TextRange touched, kevra::EditKind kind);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    [[nodiscard]] QMimeData *toMimeData(const QByteArray &text, bool rectangular) const override;

private:
    friend class EditScope;
    friend class UndoStep;

    std::intptr_t send(unsigned message, Offset first = 0, std::intptr_t second = 0) const;
    std::intptr_t sendBytes(unsigned message, Offset first, const char *bytes) const;
    void setUp();
    /// Room for a text of that size; throws when there is none.
    void reserve(Offset size);
    void bindKeys();
    void connectPainting();
    [[nodiscard]] TextRange inside(TextRange range) const;
    [[nodiscard]] int styleOf(Colour colour);
    /// The colour of text that comes in now.
    [[nodiscard]] Colour insertionColour() const;
    [[nodiscard]] std::string stylesIn(TextRange range) const;
    void applyFont();
    void replaceBytes(TextRange range, std::string_view text);
    [[nodiscard]] std::string_view textWithoutBreaks() const;
    [[nodiscard]] Offset controlLength() const;
    /// Scintilla's first line of a line.
    [[nodiscard]] Offset controlLine(Offset line) const;
    [[nodiscard]] TextRange controlRange(TextRange range) const;
    Offset countedTo(Offset position) const;
    [[nodiscard]] std::string_view bytesInControl(Offset start, Offset length) const;
    void appendWithBreaks(std::string_view text);
    /// Breaks what has become too long, and joins what has become empty, where an edit ends.
    void mendBreaks(TextRange edited);
    void mendBreaksAt(Offset position);
    /// Between the two bytes of a break there is no place for a caret.
    void leaveBreaks();
    void moveByKey(QKeyEvent &event);
    void mendAfterKey(Offset lengthBefore);
    void deleteWord(int key);
    void indentLines();
    void paint(TextRange range, int style);
    void setStyles(Offset start, std::string_view styles);
    /// What can be seen at once, the rest in the pauses and when it is looked at.
    void paintLater(Offset start, std::string styles);
    void paintShown();
    void paintUpTo(Offset end);
    void stylesAreUpToDate();
    void beforeChange(int position, int type, int length);
    /// The bytes of text in what has come in; nothing when that is known already.
    std::optional<Offset> readInserted();
    void settle();
    void announce();
    void command(EditKind kind, unsigned message);
    void typeKey(QKeyEvent &event, char32_t character);
    void deleteByKey(QKeyEvent &event);
    [[nodiscard]] std::optional<Stroke> deletingStroke(const QKeyEvent &event) const;
    void typeText(const QKeyEvent &event);
    void announceCharacter(char32_t character);
    void breakLine(QKeyEvent &event);
    [[nodiscard]] bool selectsLines() const;
    /// Undo takes back what comes now together with the strokes before, where they belong together.
    void beginStroke(Stroke stroke, UndoSteps::Milliseconds time);
    void endUndoStep();
    void insertAsUser(TextRange range, const QMimeData *source, EditKind kind);
    void pasteSelectionAt(QPoint place);
    void placeCaretFor(QPoint place);

    using Direct = std::intptr_t (*)(void *, unsigned, std::uintptr_t, std::intptr_t);
    Direct m_direct = nullptr;
    void *m_scintilla = nullptr;
    std::vector<Colour> m_styleColours; ///< by style; the styles that Scintilla keeps for itself stay black
    UnpaintedStyles m_unpainted;
    QTimer m_paintRest;
    bool m_allBlack = true; ///< no colour has been given since the text was loaded
    Colour m_typing = colours::black;
    EditorFont m_font{"Courier New", 10};
    int m_rightMargin = noWrapMargin;
    bool m_displayed = true;
    bool m_readOnly = false;
    bool m_keepIndentation = false;
    TypingHandler *m_typingHandler = nullptr;
    CommandChanges m_changes;
    UndoSteps m_undoSteps;
    bool m_undoStepOpen = false;
    bool m_composing = false; ///< an input method has text in the document that may still change
    SoftBreaks m_breaks;
    LineLimits m_limits;
    bool m_breaking = false; ///< what is inserted now has breaks in it
    mutable std::string m_whole; ///< the text without its breaks, while that is known
    mutable bool m_wholeKnown = false;
    mutable std::string m_part;
    /// What has come into Scintilla's text and has still to be looked at for breaks.
    std::optional<TextRange> m_inserted;
    mutable std::optional<Offset> m_characters; ///< once somebody has asked
    struct Counted {
        Offset line = 0; ///< where it starts
        Offset position = 0;
        Offset characters = 0;
    };
    mutable Counted m_counted; ///< from the start of a line to the place last asked about
    AnchorAndCaret m_knownSelection;
    Offset m_knownFirstLine = 0;
    bool m_knownSavePoint = true;
};

} // namespace kevra
