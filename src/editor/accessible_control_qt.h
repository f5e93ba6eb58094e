// SPDX-License-Identifier: GPL-3.0-or-later
// The accessible interface of the document control. Offsets are UTF-16 code units, as everywhere in
// QAccessible; Scintilla indexes them by line, so the cost of each function is bounded by a line.
// QScintilla's own interface scans the text from its start at every change and caret move.
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
    using OffsetRange = std::pair<int, int>;

    /// Makes Scintilla maintain its index from now on, which slows loading by more than half. On demand,
    /// since Qt creates this interface for every control with a name, whether or not a screen reader runs.
    void countCharacters() const;
    /// The offset where one of Scintilla's lines starts.
    [[nodiscard]] int lineOffset(long line) const;
    [[nodiscard]] long lineAtOffset(int offset) const;
    [[nodiscard]] OffsetRange lineAround(int offset) const;
    [[nodiscard]] OffsetRange rangeAround(int offset, QAccessible::TextBoundaryType type) const;
    [[nodiscard]] int resolved(int offset) const;
    [[nodiscard]] QString report(OffsetRange stretch, int *start, int *end) const;

    EditorControl &m_control;
};

/// Notifies screen readers of changes of one control, its parent. Costs nothing while there are none.
class AccessibilityNotifier : public QObject, public QAccessible::ActivationObserver {
public:
    using Notify = void (*)(QAccessibleEvent *);

    explicit AccessibilityNotifier(EditorControl &control, Notify notify = QAccessible::updateAccessibility);
    ~AccessibilityNotifier() override;

    void accessibilityActiveChanged(bool active) override { m_active = active; }

private:
    void keepRemoved(Offset position, Offset length);
    void textChanged(Offset position, Offset removed, Offset added);
    void caretMoved();

    EditorControl &m_control;
    Notify m_notify;
    bool m_active;
    QString m_removed;
};

} // namespace kevra
