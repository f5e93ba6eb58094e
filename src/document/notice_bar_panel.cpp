// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/notice_bar_panel.h"

#include "desktop/text_qt.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>

namespace kevra {

namespace {

constexpr int minimumDescriptionWidth = 200; ///< pixels; a longer text is cut off and shown as tool tip

/// A label that fills the space left by the buttons, however long its text.
class Description : public QLabel {
public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return {minimumDescriptionWidth, QLabel::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace

NoticeBar::NoticeBar(
    const char *name, const char *title, QMainWindow &window, std::initializer_list<Button> buttons)
    : QToolBar(&window)
    , m_description(new Description(this))
{
    setObjectName(name);
    setWindowTitle(title);
    setMovable(false);
    toggleViewAction()->setVisible(false);
    m_description->setObjectName(objectName() + "text");
    m_description->setTextFormat(Qt::PlainText);
    m_description->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_description->setMargin(4);
    addWidget(m_description);
    for (const auto &row : buttons) {
        auto *button = new QPushButton(row.caption, this);
        button->setObjectName(row.name);
        button->setToolTip(row.toolTip);
        connect(button, &QPushButton::clicked, this, row.chosen);
        m_buttons[row.name] = addWidget(button);
    }
    // On its own row, which takes no space while hidden.
    window.addToolBarBreak();
    window.addToolBar(this);
    hide();
}

void NoticeBar::showText(const std::string &description)
{
    const auto text = pathText(description);
    m_description->setText(text);
    m_description->setToolTip(text);
    m_description->setAccessibleName(text);
    show();
    QAccessibleEvent spoken(m_description, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}

void NoticeBar::setButtonVisible(const char *name, bool visible)
{
    m_buttons[name]->setVisible(visible);
}

} // namespace kevra
