// SPDX-License-Identifier: GPL-3.0-or-later
// EditorSurface over Scintilla. Every colour in use is a Scintilla style; undo is Scintilla's own and does
// not include colours. Overlong lines are broken in Scintilla's text only: positions and lines in this
// class's interface are the document's, those in messages are Scintilla's.
#pragma once

#include "editor/character_count.h"
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
    [[nodiscard]] Offset TextLength() const override;
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
    /// Counts rows: a wrapped line is several.
    [[nodiscard]] Offset FirstVisibleLine() const override;
    void SetFirstVisibleLine(Offset line) override;
    void SetDisplay(bool on) override;
    void SetMousePointer(MousePointer pointer) override;
    void SetFocus() override;

    /// Colours while the user types; not owned, may be null.
    void setTypingHandler(TypingHandler *handler) { m_typingHandler = handler; }
    /// Read-only for the user; the program can still change the text.
    void setReadOnly(bool on);
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }

    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    /// May have to query another program.
    [[nodiscard]] bool clipboardHasText() const;
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void selectAll();
    /// Replaces a part of the text as a user's edit: the colouring is notified, and a read-only control does
    /// nothing.
    void replaceAsUser(TextRange range, std::string_view text);
    [[nodiscard]] AnchorAndCaret anchorAndCaret() const;
    /// Applies the edit of a command on lines; does nothing in a read-only control.
    void apply(const std::optional<LineEdit> &edit);
    /// Whether Return copies the indentation of the line above.
    void setKeepIndentation(bool on) { m_keepIndentation = on; }

    /// Sets which lines are broken, for texts loaded from now on.
    void setLineLimits(const LineLimits &limits) { m_limits = limits; }
    /// Converts positions for messages sent to Scintilla directly.
    [[nodiscard]] const SoftBreaks &breaks() const { return m_breaks; }

    /// Applies all pending colours, for a reader other than the window.
    void paintAll();
    /// Marks the current text as what the file holds.
    void setSavePoint();
    [[nodiscard]] bool isAtSavePoint() const;

    [[nodiscard]] const CharacterCount &characters() const { return m_characters; }
    [[nodiscard]] Offset lineCount() const;
    [[nodiscard]] TextRange lineRange(Offset line) const; ///< without the line break

signals:
    /// The text is about to be removed. It can still be read, and must not be changed.
    void aboutToRemove(kevra::Offset position, kevra::Offset length);
    /// A range of the text has changed; `position` and `removed` refer to the old text.
    void changed(kevra::Offset position, kevra::Offset removed, kevra::Offset added, kevra::EditKind kind);
    /// The caret or the selection has changed.
    void caretMoved();
    void firstVisibleLineChanged(kevra::Offset line);
    void savePointChanged(bool atSavePoint);
    void readOnlyChanged(bool readOnly);
    /// A user's command has ended; `touched` is what it changed.
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
    friend class ControlLayout;
    friend class EditScope;
    friend class UndoStep;

    std::intptr_t send(unsigned message, Offset first = 0, std::intptr_t second = 0) const;
    std::intptr_t sendBytes(unsigned message, Offset first, const char *bytes) const;
    void setUp();
    /// Allocates memory for a text of that size; throws std::bad_alloc.
    void reserve(Offset size);
    void bindKeys();
    void connectPainting();
    [[nodiscard]] TextRange inside(TextRange range) const;
    [[nodiscard]] int styleOf(Colour colour);
    /// The colour of text inserted now.
    [[nodiscard]] Colour insertionColour() const;
    [[nodiscard]] std::string stylesIn(TextRange range) const;
    void applyFont();
    void replaceBytes(TextRange range, std::string_view text);
    [[nodiscard]] std::string_view textWithoutBreaks() const;
    [[nodiscard]] Offset controlLength() const;
    /// The first of Scintilla's lines for a line.
    [[nodiscard]] Offset controlLine(Offset line) const;
    [[nodiscard]] TextRange controlRange(TextRange range) const;
    [[nodiscard]] std::string_view bytesInControl(Offset start, Offset length) const;
    void appendWithBreaks(std::string_view text);
    /// Breaks lines that the edit made too long, and removes breaks that are no longer needed.
    void updateBreaks(TextRange edited);
    void updateBreaksAt(Offset position);
    /// Moves anchor and caret out of the bytes of a break.
    void leaveBreaks();
    void moveByKey(QKeyEvent &event);
    void updateBreaksAfterKey(Offset lengthBefore);
    void deleteWord(int key);
    void indentLines();
    void unindentLines();
    void paint(TextRange range, int style);
    void setStyles(Offset start, std::string_view styles);
    /// Paints what is in view now, the rest in idle time or when it comes into view.
    void paintLater(Offset start, std::string styles);
    void paintShown();
    void paintUpTo(Offset end);
    void stylesAreUpToDate();
    void beforeChange(int position, int type, int length);
    /// The length of the inserted text without breaks; nothing if it is known already.
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
    /// Continues the current undo step if the stroke belongs to it, else begins a new one.
    void beginStroke(Stroke stroke, UndoSteps::Milliseconds time);
    void endUndoStep();
    void insertAsUser(TextRange range, const QMimeData *source, EditKind kind);
    void pasteSelectionAt(QPoint place);
    void placeCaretFor(QPoint place);

    using Direct = std::intptr_t (*)(void *, unsigned, std::uintptr_t, std::intptr_t);
    Direct m_direct = nullptr;
    void *m_scintilla = nullptr;
    std::vector<Colour> m_styleColours; ///< by style; Scintilla's reserved styles stay black
    UnpaintedStyles m_unpainted;
    QTimer m_paintRest;
    bool m_allBlack = true; ///< no colour was applied since the text was loaded
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
    bool m_composing = false; ///< the document has provisional text of an input method
    SoftBreaks m_breaks;
    LineLimits m_limits;
    bool m_breaking = false; ///< the text being inserted contains breaks
    mutable std::string m_whole; ///< the text without breaks, if m_wholeKnown
    mutable bool m_wholeKnown = false;
    mutable std::string m_part;
    /// Inserted into Scintilla's text and not searched for breaks yet.
    std::optional<TextRange> m_inserted;
    CharacterCount m_characters{*this};
    AnchorAndCaret m_knownSelection;
    Offset m_knownFirstLine = 0;
    bool m_knownSavePoint = true;
};

} // namespace kevra
