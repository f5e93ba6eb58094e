// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/image_panel.h"

#include "desktop/text_qt.h"
#include "widgets/fitted_button_qt.h"
#include "widgets/named_qt.h"

#include <QtWidgets/QFrame>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>

namespace kevra {
namespace {

constexpr QSize patchSize(56, 26);
constexpr int pathCharacters = 36; ///< if there is room
constexpr int minPathCharacters = 6;
constexpr int sizeCharacters = 14;
constexpr int codeCharacters = 12;

class PathBox : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    QSize sizeHint() const override
    {
        return {fontMetrics().averageCharWidth() * pathCharacters, QLineEdit::sizeHint().height()};
    }
    QSize minimumSizeHint() const override
    {
        return {fontMetrics().averageCharWidth() * minPathCharacters, QLineEdit::sizeHint().height()};
    }
};

QLineEdit *readOnlyBox(const char *name, const char *accessibleName, int characters, QWidget &frame)
{
    auto *box = named<QLineEdit>(name, &frame, accessibleName);
    box->setReadOnly(true);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * characters);
    return box;
}

} // namespace

void showColourIn(QWidget &patch, Colour colour)
{
    auto palette = patch.palette();
    palette.setColor(QPalette::Window,
        QColor(static_cast<int>(colour.red()), static_cast<int>(colour.green()),
            static_cast<int>(colour.blue())));
    patch.setPalette(palette);
    patch.update();
}

QHBoxLayout *panelRow(QWidget &frame)
{
    // Flat enough for the strip below the document.
    auto *row = new QHBoxLayout(&frame);
    row->setContentsMargins(8, 2, 8, 2);
    return row;
}

QFrame *colourPatch(const char *name, QWidget *parent)
{
    auto *patch = named<QFrame>(name, parent, "Color");
    patch->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    patch->setAutoFillBackground(true);
    patch->setFixedSize(patchSize);
    patch->setToolTip("displays sampled color.");
    showColourIn(*patch, colours::black);
    return patch;
}

ImagePanel::ImagePanel(QWidget &frame, const Hooks &hooks)
    : m_sample(colourPatch("picsmall", &frame))
    , m_code(readOnlyBox("thex", "Sampled color", codeCharacters, frame))
    , m_size(readOnlyBox("tsize", "Image size", sizeCharacters, frame))
    , m_path(named<PathBox>("tgrfil", &frame, "Image path"))
    , m_tag(named<FittedButton>("bspec", &frame))
{
    auto *copy = named<FittedButton>("bbitcol", &frame);
    copy->setText("HEX CODE TO CLIPBOARD");
    copy->setToolTip("Copy hex color code to clipboard.");
    m_tag->setText("IMG TAG TO CLIPBOARD");
    m_tag->setToolTip("Put IMG tag on clipboard with width and height specs for this file");
    m_code->setToolTip("The color sampled in the image");
    m_size->setToolTip("Width and height of the image");
    m_path->setReadOnly(true);
    auto *row = panelRow(frame);
    for (QWidget *control : std::initializer_list<QWidget *>{m_sample, m_code, copy, m_size, m_path, m_tag})
        row->addWidget(control);
    QObject::connect(copy, &QPushButton::clicked, &frame, hooks.copyColour);
    QObject::connect(m_tag, &QPushButton::clicked, &frame, hooks.copyTag);
}

void ImagePanel::enableTag(bool on)
{
    m_tag->setEnabled(on);
}

void ImagePanel::showSizeAndPath(const std::string &size, const std::string &path)
{
    m_size->setText(QString::fromStdString(size));
    m_path->setText(pathText(path));
    m_path->setToolTip(m_path->text());
}

void ImagePanel::showSample(Colour colour, const std::string &code)
{
    showColourIn(*m_sample, colour);
    m_code->setText(QString::fromStdString(code));
}

std::string ImagePanel::sampleCode() const
{
    return m_code->text().toStdString();
}

} // namespace kevra
