// SPDX-License-Identifier: GPL-3.0-or-later
#include "snippets/snippet_panel.h"

#include "desktop/text_qt.h"
#include "widgets/fitted_button_qt.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QToolTip>

namespace kevra {
namespace {

constexpr int gapInGroup = 2; // device-independent pixels
constexpr int gapBetweenGroups = 8;
constexpr int sidePadding = 12;

class SnippetButton : public QToolButton {
public:
    SnippetButton(const Snippet &snippet, const SnippetPanelHooks &hooks, QWidget *parent)
        : QToolButton(parent)
        , m_snippet(snippet)
        , m_withComments(hooks.withComments)
    {
        setObjectName(textOf(snippet.button));
        setText(textOf(snippet.caption));
        setFocusPolicy(Qt::TabFocus);
        describe();
        setEnabled(snippet.insertion != Insertion::Command || hooks.isBound(snippet.button));
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        connect(this, &QToolButton::clicked, this, [&snippet, chosen = hooks.chosen] { chosen(snippet); });
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + sidePadding, fontMetrics().height() + sidePadding};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return minimumSizeOf(*this); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.font = fontFitting(font(), text(), captionWidth(*this));
        option.fontMetrics = QFontMetrics(option.font);
        QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
    }
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::ToolTip)
            describe(); // a setting decides what is inserted
        return QToolButton::event(event);
    }

private:
    void describe()
    {
        const auto text = textOf(textToInsert(m_snippet, m_withComments())).remove('\r');
        setToolTip(
            m_snippet.insertion == Insertion::Command ? text : "<pre>" + text.toHtmlEscaped() + "</pre>");
        // Without it, screen readers would read out the markup of the tooltip.
        setAccessibleDescription(text);
    }

    const Snippet &m_snippet;
    std::function<bool()> m_withComments;
};

} // namespace

void fillSnippetPanel(QFrame &frame, SnippetPanel panel, const SnippetPanelHooks &hooks)
{
    auto *row = new QHBoxLayout(&frame);
    row->setContentsMargins(0, 2, 0, 2);
    row->setSpacing(gapInGroup);
    int group = 0;
    for (const auto &snippet : snippets()) {
        if (snippet.panel != panel)
            continue;
        if (snippet.group != group)
            row->addSpacing(gapBetweenGroups);
        group = snippet.group;
        row->addWidget(new SnippetButton(snippet, hooks, &frame));
    }
}

} // namespace kevra
