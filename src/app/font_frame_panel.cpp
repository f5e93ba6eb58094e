// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/font_frame_panel.h"

#include "desktop/text_qt.h"
#include "settings/fonts.h"
#include "widgets/named_qt.h"

#include <QtCore/QTimer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>

#include <functional>

namespace kevra {

namespace {

constexpr int standardEntry = 1;

/// Notifies when its list is closed, after any choice has been applied.
class FontBox : public QComboBox {
public:
    using QComboBox::QComboBox;
    std::function<void()> listClosed = [] {};

    void hidePopup() override
    {
        const bool open = view()->isVisible();
        QComboBox::hidePopup();
        if (open)
            QTimer::singleShot(0, this, listClosed);
    }
};

template <typename Entries> void fill(QComboBox &box, const Entries &entries)
{
    for (const auto entry : entries)
        box.addItem(textOf(entry));
    box.setCurrentIndex(standardEntry);
}

} // namespace

FontFrame::FontFrame(QWidget *parent)
    : QFrame(parent)
    , m_face(named<FontBox>("comface", this, "Font face"))
    , m_size(named<FontBox>("comfsize", this, "Font size"))
{
    setObjectName("frtbar");
    fill(*m_face, fontFaces);
    fill(*m_size, fontSizes);
    m_face->setToolTip("Font face");
    m_size->setToolTip("Font size");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 12, 2);
    row->addWidget(m_face);
    row->addWidget(m_size);
    for (auto *box : {m_face, m_size}) {
        connect(box, &QComboBox::currentIndexChanged, this, &FontFrame::fontChosen);
        static_cast<FontBox *>(box)->listClosed = [this] { emit listClosed(); };
    }
}

void FontFrame::selectFace(int position)
{
    m_face->setCurrentIndex(position);
}

void FontFrame::selectSize(int position)
{
    m_size->setCurrentIndex(position);
}

std::string FontFrame::face() const
{
    return m_face->currentText().toStdString();
}

std::string FontFrame::size() const
{
    return m_size->currentText().toStdString();
}

} // namespace kevra
