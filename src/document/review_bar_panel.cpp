// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/review_bar_panel.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <array>

namespace kevra {
namespace {

constexpr int smallestDescription = 200; ///< pixels; a longer text is cut off and shown as tool tip

struct BarButton {
    const char *name;
    const char *caption;
    const char *toolTip;
    void (ReviewBar::*chosen)();
};

constexpr std::array barButtons{
    BarButton{"breviewsave", "&Save As...", "Save this text under a name", &ReviewBar::saveChosen},
    BarButton{"breviewdiscard", "&Discard", "This text is not wanted", &ReviewBar::discardChosen},
    BarButton{
        "breviewlater", "Decide &Later", "Keep this text until the next start", &ReviewBar::laterChosen},
};

} // namespace

ReviewBar::ReviewBar(QWidget *parent)
    : QToolBar(parent)
    , m_description(new QLabel(this))
{
    setObjectName("reviewbar");
    setWindowTitle("Text from the last session");
    setMovable(false);
    toggleViewAction()->setVisible(false);
    m_description->setTextFormat(Qt::PlainText);
    m_description->setMinimumWidth(smallestDescription);
    m_description->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_description->setMargin(4);
    addWidget(m_description);
    for (const auto &row : barButtons) {
        auto *button = new QPushButton(row.caption, this);
        button->setObjectName(row.name);
        button->setToolTip(row.toolTip);
        connect(button, &QPushButton::clicked, this, row.chosen);
        addWidget(button);
    }
}

void ReviewBar::setDescription(const QString &text)
{
    m_description->setText(text);
    m_description->setToolTip(text);
}

} // namespace kevra
