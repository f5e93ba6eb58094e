// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/compare_window.h"

#include "desktop/text_qt.h"
#include "document/compare_panel.h"
#include "widgets/window_size_qt.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QVBoxLayout>

namespace kevra {

CompareWindow::CompareWindow(QWidget *parent)
    : QDialog(parent)
    , m_panel(new ComparePanel(this))
{
    setObjectName("fcompare");
    setWindowTitle("Compare");
    resizeWithinScreen(*this, {900, 600});
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_panel);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setObjectName("bcompareclose");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

void CompareWindow::showTexts(const TextsToCompare &texts)
{
    m_panel->showTexts({pathText(texts.leftTitle), texts.left}, {pathText(texts.rightTitle), texts.right});
    show();
    raise();
    activateWindow();
}

} // namespace kevra
