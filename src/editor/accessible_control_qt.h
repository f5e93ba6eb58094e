// SPDX-License-Identifier: GPL-3.0-or-later
// The document control as screen readers see it. Offsets are UTF-16 code units, as everywhere in QAccessible;
// Scintilla keeps an index of them by line, so that none of this costs more than the line it is about. The
// library's own interface scans the text from its start at every change and caret move.
#pragma once

#include "editor/editor_control_qt.h"

#include <QAccessibleWidget>

#include <utility>

namespace kevra {

class AccessibleControl : public QAccessibleWidget,
                          public QAccessibleTextInterface,
                          public QAccessibleEditableTextInterface {
public:
    explicit AccessibleControl(EditorControl &control);

    /// Makes this the interface of every EditorControl.
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessible::State state() const override;

    void selection(int index, int *start, int *end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int offset) override;
    [[nodiscard]] QString text(int start, int end) const override;
    using QAccessibleWidget::text;
    [[nodiscard]] QString textBeforeOffset(
        int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    [[nodiscard]] QString textAfterOffset(
        int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    [[nodiscard]] QString textAtOffset(
        int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    [[nodiscard]] QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

    [[nodiscard]] int offsetOf(Offset position) const;
    [[nodiscard]] Offset positionOf(int offset) const;

private:
    using Stretch = std::pair<int, int>;

    /// Has Scintilla count the UTF-16 units of the lines from now on, which costs a load more than half of
    /// its time. Qt makes this interface of every control that is given a name, read to anybody or not.
    void countCharacters() const;
    /// Where one of Scintilla's lines starts, in the offsets of a screen reader.
    [[nodiscard]] int lineOffset(long line) const;
    [[nodiscard]] long lineAtOffset(int offset) const;
    [[nodiscard]] Stretch lineAround(int offset) const;
    [[nodiscard]] Stretch stretchAround(int offset, QAccessible::TextBoundaryType type) const;
    [[nodiscard]] int resolved(int offset) const;
    [[nodiscard]] QString report(Stretch stretch, int *start, int *end) const;

    EditorControl &m_control;
};

/// Tells screen readers of the changes of one control, whose child it is. Costs nothing while there are none.
class AccessibilityNotifier : public QObject, public QAccessible::ActivationObserver {
public:
    using Tell = void (*)(QAccessibleEvent *);

    explicit AccessibilityNotifier(EditorControl &control, Tell tell = QAccessible::updateAccessibility);
    ~AccessibilityNotifier() override;

    void accessibilityActiveChanged(bool active) override { m_listened = active; }

private:
    void keepRemoved(Offset position, Offset length);
    void textChanged(Offset position, Offset removed, Offset added);
    void caretMoved();

    EditorControl &m_control;
    Tell m_tell;
    bool m_listened;
    QString m_removed;
};

} // namespace kevra
