// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/fso_popup_qt.h"

#include "editor/control_layout_qt.h"
#include "editor/editor_control_qt.h"
#include "snippets/fso_popup.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <array>

namespace kevra {
namespace {

constexpr std::array menuKeys{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Return,
    Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Escape};

} // namespace

FsoPopup::FsoPopup(EditorControl &control, const DocumentState &state, QMenu &menu)
    : m_control(control)
    , m_state(state)
    , m_menu(menu)
{
    menu.installEventFilter(this);
    connect(&menu, &QMenu::triggered, this, [this](QAction *method) { insert(*method); });
    // Queued: the full stop is in the text only after the key has been handled.
    connect(
        &control, &EditorControl::changed, this,
        [this](Offset, Offset, Offset added, EditKind kind) {
            if (kind == EditKind::Typing && added == 1 && m_state.scriptTools && m_state.options.fsoMenu
                && offersFsoMethods(m_control))
                openAtCaret();
        },
        Qt::QueuedConnection);
}

void FsoPopup::openAtCaret()
{
    if (!m_control.hasFocus() || m_menu.isVisible())
        return;
    m_start = m_control.SelStart();
    for (auto *method : m_menu.actions())
        method->setVisible(true);
    m_menu.popup(place());
    m_menu.setActiveAction(m_menu.actions().value(0));
}

void FsoPopup::insert(const QAction &method)
{
    const auto name = method.text().remove('&').toStdString();
    m_control.SetTypingColor(colours::black);
    m_control.Replace({m_start, m_control.SelStart()}, name);
    m_control.SetFocus();
}

/// Shows only the methods that begin with the letters typed after the full stop.
void FsoPopup::filter()
{
    const auto caret = m_control.SelStart();
    const auto typed = QString::fromStdString(std::string(m_control.Text({m_start, caret})));
    QAction *first = nullptr;
    for (auto *method : m_menu.actions()) {
        const bool fits = caret >= m_start && m_control.Text({m_start - 1, m_start}) == "."
            && method->text().remove('&').startsWith(typed, Qt::CaseInsensitive);
        method->setVisible(fits);
        if (fits && !first)
            first = method;
    }
    if (!first)
        return void(m_menu.close());
    m_menu.setActiveAction(first);
    m_menu.move(place());
}

/// Below the current line, or above it if there is no room. Changes as the menu shrinks while letters are
/// typed.
QPoint FsoPopup::place() const
{
    const auto *viewport = m_control.viewport();
    const auto below = viewport->mapToGlobal(ControlLayout(m_control).bottomLeft(m_start));
    const int lineHeight = static_cast<int>(m_control.SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0L));
    const auto size = m_menu.sizeHint();
    const auto screen = m_control.screen()->availableGeometry();
    const int left = std::min(below.x(), screen.right() + 1 - size.width());
    const int above = below.y() - lineHeight - size.height();
    return {
        left, below.y() + size.height() <= screen.bottom() + 1 || above < screen.top() ? below.y() : above};
}

/// Keys that the menu does not use are passed on to the text.
bool FsoPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (std::ranges::find(menuKeys, key->key()) == menuKeys.end()) {
        QKeyEvent forwarded(key->type(), key->key(), key->modifiers(), key->text(), key->isAutoRepeat());
        QCoreApplication::sendEvent(&m_control, &forwarded);
        filter();
        return true;
    }
    if (key->key() != Qt::Key_Tab)
        return false;
    auto *chosen = m_menu.activeAction();
    m_menu.close();
    if (chosen)
        chosen->trigger();
    return true;
}

} // namespace kevra
