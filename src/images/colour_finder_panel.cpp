// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/colour_finder_panel.h"

#include "images/image_panel.h"
#include "widgets/fitted_button_qt.h"
#include "widgets/named_qt.h"

#include <QtGui/QPainter>
#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace kevra {
namespace {

constexpr int aroundText = 14; ///< pixels: frame, margins and space for the caret

struct PanelButton {
    const char *name;
    const char *caption;
    const char *tip;
    void (ColourFinderCommands::*command)();
};

constexpr PanelButton close{
    "bclosecol", "CLOSE TOOLBAR", "Close Color Finder", &ColourFinderCommands::HideColourFinder};
constexpr PanelButton choose{
    "bchoosecol", "CHOOSE COLOR", "Open color selector.", &ColourFinderCommands::ChooseColour};
constexpr PanelButton copy{
    "bclip", "HEX CODE TO CLIPBOARD", "Copy hex code to Clipboard", &ColourFinderCommands::CopyColourCode};
constexpr PanelButton showTyped{
    "bshowhex", "SHOW THIS COLOR", "Show color of hex code entered.", &ColourFinderCommands::ShowTypedColour};

/// Draws its caption in a smaller font if there is no room for it, like the buttons beside it.
class FittedLabel : public QLabel {
public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const auto whole = QLabel::minimumSizeHint();
        return {whole.width() * 6 / 10, whole.height()};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setFont(fontFitting(font(), text(), width()));
        painter.drawText(rect(), Qt::AlignVCenter, text());
    }
};

} // namespace

ColourFinderPanel::ColourFinderPanel(
    QWidget &frame, EditorSurface &surface, ColourDialog &dialog, Messages &messages, Clipboard &clipboard)
    : m_frame(frame)
    , m_commands(surface, dialog, messages, clipboard, *this)
    , m_typed(named<QLineEdit>("tenter", &frame, "Hex code"))
    , m_code(named<QLineEdit>("thex2", &frame, "Color code"))
    , m_patch(colourPatch("pcol", &frame))
{
    auto *row = panelRow(frame);
    const auto addButton = [&](const PanelButton &button) {
        auto *made = named<FittedButton>(button.name, &frame);
        made->setText(button.caption);
        made->setToolTip(button.tip);
        QObject::connect(
            made, &QPushButton::clicked, &frame, [this, button] { (m_commands.*button.command)(); });
        row->addWidget(made);
        return made;
    };
    m_typed->setFixedWidth(m_typed->fontMetrics().horizontalAdvance("DDDDDD") + aroundText);
    m_code->setFixedWidth(m_code->fontMetrics().horizontalAdvance("\"#DDDDDD\"") + aroundText);
    m_typed->setToolTip("Six characters 0 to 9 or A to F, without \"#\"");
    m_code->setReadOnly(true);
    m_code->setToolTip("The code of the color, in quotes");
    addButton(choose);
    row->addWidget(m_patch);
    row->addWidget(m_code);
    addButton(copy);
    auto *label = new FittedLabel("(ENTER HEX CODE)", &frame);
    label->setBuddy(m_typed);
    row->addWidget(label);
    row->addWidget(m_typed);
    auto *typed = addButton(showTyped);
    addButton(close);
    QObject::connect(m_typed, &QLineEdit::returnPressed, typed, &QPushButton::click);
}

void ColourFinderPanel::showPanel(bool on)
{
    m_frame.setVisible(on);
    if (on)
        m_frame.raise();
}

std::string ColourFinderPanel::typedCode() const
{
    return m_typed->text().toStdString();
}

void ColourFinderPanel::showColour(Colour colour, const std::string &code)
{
    m_colour = colour;
    showColourIn(*m_patch, colour);
    m_code->setText(QString::fromStdString(code));
    m_patch->repaint();
}

std::string ColourFinderPanel::shownCode() const
{
    return m_code->text().toStdString();
}

} // namespace kevra
